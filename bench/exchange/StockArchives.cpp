#include "StockArchives.h"

#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/archive/xml_iarchive.hpp>
#include <boost/archive/xml_oarchive.hpp>

#include "exchange/Tessaron2dInputSerialization.h"
#include "exchange/ToolpathRecordsSerialization.h"
#include "exchange/mesh/MeshSerialization.h"

BOOST_CLASS_EXPORT_IMPLEMENT(geom::PolylineImpl<2>)
BOOST_CLASS_EXPORT_IMPLEMENT(geom::Arc2Impl)

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
