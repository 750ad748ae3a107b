#ifndef BENCH_EXCHANGE_BENCHRECORDS_H
#define BENCH_EXCHANGE_BENCHRECORDS_H

#include <tessaron/exchange/Archives.h>

#include <vector>

namespace bench
{

/// A spiral of mostly linear moves with coordinates that need all their digits, and now and then another record.
exchange::ToolpathRecords makeToolpath(std::size_t recordCount);

/// A bumpy square of (columns * rows) vertices and twice as many facets.
topo::mesh::TriMeshPtr makeMesh(int columns, int rows);

/// An input as hosts send it for a single pocket: two curves, a few parameters, a hole, a holder.
exchange::Tessaron2dInput makeInput(int seed);

} // namespace bench

#endif
