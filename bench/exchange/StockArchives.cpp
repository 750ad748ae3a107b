#include "StockArchives.h"

#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/archive/xml_iarchive.hpp>
#include <boost/archive/xml_oarchive.hpp>

#include <tessaron/exchange/Tessaron2dInputSerialization.h>
#include <tessaron/exchange/ToolpathRecordsSerialization.h>
#include <tessaron/exchange/mesh/MeshSerialization.h>

namespace bench::stock
{

template <class Record>
void writeXml(std::ostream& stream, const Record& record)
{
    boost::archive::xml_oarchive archive(stream);
    archive << BOOST_SERIALIZATION_NVP(record);
}

template <class Record>
void readXml(std::istream& stream, Record& record)
{
    boost::archive::xml_iarchive archive(stream);
    archive >> BOOST_SERIALIZATION_NVP(record);
}

template <class Record>
void writeBinary(std::ostream& stream, const Record& record)
{
    boost::archive::binary_oarchive archive(stream);
    archive << BOOST_SERIALIZATION_NVP(record);
}

template <class Record>
void readBinary(std::istream& stream, Record& record)
{
    boost::archive::binary_iarchive archive(stream);
    archive >> BOOST_SERIALIZATION_NVP(record);
}

template void writeXml(std::ostream&, const exchange::ToolpathRecords&);
template void readXml(std::istream&, exchange::ToolpathRecords&);
template void writeXml(std::ostream&, const topo::mesh::TriMeshPtr&);
template void readXml(std::istream&, topo::mesh::TriMeshPtr&);
template void writeBinary(std::ostream&, const topo::mesh::TriMeshPtr&);
template void readBinary(std::istream&, topo::mesh::TriMeshPtr&);
template void writeXml(std::ostream&, const exchange::Tessaron2dInput&);
template void readXml(std::istream&, exchange::Tessaron2dInput&);
template void writeBinary(std::ostream&, const exchange::Tessaron2dInput&);
template void readBinary(std::istream&, exchange::Tessaron2dInput&);

} // namespace bench::stock
