#ifndef TESSARON_EXCHANGE_GEOM_POINTND_H
#define TESSARON_EXCHANGE_GEOM_POINTND_H

// Stability: stable.

#include <type_traits>

namespace geom
{

/// A point of N-dimensional space, N being 2 or 3, in the host's length unit. A plain value of N doubles.
template <int N>
class PointNd
{
    static_assert(N == 2 || N == 3, "points have two or three coordinates");

public:
    /// The origin.
    constexpr PointNd() : coord{} {}
    /// A point from its N coordinates: PointNd<2>(x, y), PointNd<3>(x, y, z).
    template <class... Coords, class = std::enable_if_t<sizeof...(Coords) == N>>
    constexpr PointNd(Coords... coords) : coord{static_cast<double>(coords)...}
    {
    }

    constexpr double operator[](int i) const { return coord[i]; }
    constexpr double& operator[](int i) { return coord[i]; }

    /// Equal in every coordinate, without a tolerance.
    friend constexpr bool operator==(const PointNd& a, const PointNd& b)
    {
        for (int i = 0; i < N; ++i)
            if (a.coord[i] != b.coord[i])
                return false;
        return true;
    }
    friend constexpr bool operator!=(const PointNd& a, const PointNd& b) { return !(a == b); }

    /// Reads or writes the element "coord"; defined in <tessaron/exchange/geom/GeomSerialization.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

    /// x, y and, in space, z.
    double coord[N];
};

} // namespace geom

#endif
