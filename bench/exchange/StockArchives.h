#ifndef BENCH_EXCHANGE_STOCKARCHIVES_H
#define BENCH_EXCHANGE_STOCKARCHIVES_H

#include <tessaron/exchange/Archives.h>

#include <iosfwd>

/// The same records through the archive classes of the serialization library itself.
namespace bench::stock
{

template <class Record>
void writeXml(std::ostream& stream, const Record& record);
template <class Record>
void readXml(std::istream& stream, Record& record);
template <class Record>
void writeBinary(std::ostream& stream, const Record& record);
template <class Record>
void readBinary(std::istream& stream, Record& record);

} // namespace bench::stock

#endif
