#ifndef TESSARON_EXCHANGE_GEOM_GEOMSERIALIZATION_H
#define TESSARON_EXCHANGE_GEOM_GEOMSERIALIZATION_H

// Stability: stable.

#include <tessaron/exchange/geom/PointNd.h>
#include <tessaron/exchange/geom/Transform.h>
#include <tessaron/exchange/geom/VecNd.h>
#include <tessaron/util/ClassVersion.h>

#include <boost/serialization/nvp.hpp>

namespace geom
{

template <int N>
template <class Archive>
void PointNd<N>::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<PointNd>(version, N == 2 ? "geom::PointNd<2>" : "geom::PointNd<3>");
    archive& BOOST_SERIALIZATION_NVP(coord);
}

template <int N>
template <class Archive>
void VecNd<N>::serialize(Archive& archive, unsigned int version)
{
    static_assert(N == 3, "only vectors of space are exchanged");
    util::checkClassVersion<VecNd>(version, "geom::VecNd<3>");
    archive& BOOST_SERIALIZATION_NVP(coord);
}

template <class Archive>
void Transform::serialize(Archive& archive, unsigned int version)
{
    util::checkClassVersion<Transform>(version, "geom::Transform");
    for (auto& row : m_rows)
        for (double& item : row)
            archive& BOOST_SERIALIZATION_NVP(item);
}

} // namespace geom

#endif
