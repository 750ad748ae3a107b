#ifndef TESSARON_EXCHANGE_GEOM_TRANSFORM_H
#define TESSARON_EXCHANGE_GEOM_TRANSFORM_H

// Stability: stable.

namespace geom
{

/// A homogeneous transform of space: a 4x4 matrix, applied to column vectors. A point (x, y, z) becomes
/// M * (x, y, z, 1), divided by its last component; column 3 of an affine transform is therefore its translation, and
/// its last row is 0 0 0 1.
class Transform
{
public:
    /// The identity.
    constexpr Transform() : m_rows{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}} {}

    /// The element in a row and a column, both 0 to 3.
    constexpr double operator()(int row, int column) const { return m_rows[row][column]; }
    constexpr double& operator()(int row, int column) { return m_rows[row][column]; }

    /// Equal in every element, without a tolerance.
    friend constexpr bool operator==(const Transform& a, const Transform& b)
    {
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column)
                if (a(row, column) != b(row, column))
                    return false;
        return true;
    }
    friend constexpr bool operator!=(const Transform& a, const Transform& b) { return !(a == b); }

    /// Reads or writes 16 elements "item", row by row; defined in <tessaron/exchange/geom/GeomSerialization.h>.
    template <class Archive>
    void serialize(Archive& archive, unsigned int version);

private:
    double m_rows[4][4];
};

} // namespace geom

#endif
