#ifndef TESSARON_EXCHANGE_TOOLPATHRECORDSSERIALIZATION_H
#define TESSARON_EXCHANGE_TOOLPATHRECORDSSERIALIZATION_H

// Stability: stable.

#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/exchange/geom/GeomSerialization.h>
#include <tessaron/util/VariantSerialization.h>

#include <boost/serialization/deque.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/string.hpp>

namespace boost
{
namespace serialization
{

template <class Archive>
void serialize(Archive& archive, exchange::ToolpathRecord& record, unsigned int version)
{
    util::serializeVariant(archive, record, version);
}

} // namespace serialization
} // namespace boost

namespace exchange
{

template <class Archive>
void RapidMove::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<RapidMove>(version, "exchange::RapidMove");
    archive& BOOST_SERIALIZATION_NVP(endPt);
}

template <class Archive>
void LinearMove::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<LinearMove>(version, "exchange::LinearMove");
    archive& BOOST_SERIALIZATION_NVP(endPt);
}

template <int Sense>
template <class Archive>
void Arc<Sense>::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<Arc>(version, Sense == 1 ? "exchange::Arc<1>" : "exchange::Arc<0>");
    archive& BOOST_SERIALIZATION_NVP(endPt);
    archive& BOOST_SERIALIZATION_NVP(radius);
}

template <class Archive>
void FeedRate::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<FeedRate>(version, "exchange::FeedRate");
    archive& BOOST_SERIALIZATION_NVP(feedrate);
}

template <class Archive>
void SpindleSpeed::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<SpindleSpeed>(version, "exchange::SpindleSpeed");
    archive& BOOST_SERIALIZATION_NVP(speed);
}

template <class Archive>
void CustomRecord::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<CustomRecord>(version, "exchange::CustomRecord");
    archive& BOOST_SERIALIZATION_NVP(string);
}

template <class Archive>
void ToolAxis::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<ToolAxis>(version, "exchange::ToolAxis");
    archive& BOOST_SERIALIZATION_NVP(axis);
}

template <class Archive>
void ToolpathRecords::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<ToolpathRecords>(version, "exchange::ToolpathRecords");
    archive& boost::serialization::make_nvp("Records", records);
}

} // namespace exchange

#endif
