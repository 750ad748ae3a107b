#ifndef TESSARON_EXCHANGE_GEOM_VECND_H
#define TESSARON_EXCHANGE_GEOM_VECND_H

// Stability: stable.

#include <type_traits>

namespace geom
{

/// A vector of N-dimensional space, N being 2 or 3: a direction, or a derivative of a curve. A plain value of N
/// doubles. Only vectors of space are part of exchange records.
template <int N>
class VecNd
{
    static_assert(N == 2 || N == 3, "vectors have two or three coordinates");

public:
    /// The zero vector.
    constexpr VecNd() : coord{} {}
    /// A vector from its N coordinates: VecNd<2>(x, y), VecNd<3>(x, y, z).
    template <class... Coords, class = std::enable_if_t<sizeof...(Coords) == N>>
    constexpr VecNd(Coords... coords) : coord{static_cast<double>(coords)...}
    {
    }

    constexpr double operator[](int i) const { return coord[i]; }
    constexpr double& operator[](int i) { return coord[i]; }

    /// Equal in every coordinate, without a tolerance.
    friend constexpr bool operator==(const VecNd& a, const VecNd& b)
    {
        for (int i = 0; i < N; ++i)
            if (a.coord[i] != b.coord[i])
                return false;
        return true;
    }
    friend constexpr bool operator!=(const VecNd& a, const VecNd& b) { return !(a == b); }

    /// Reads or writes the element "coord"; for N = 3; defined in <tessaron/exchange/geom/GeomSerialization.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

    /// x, y and, in space, z.
    double coord[N];
};

} // namespace geom

#endif
