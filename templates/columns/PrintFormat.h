#ifndef TEMPLATES_COLUMNS_PRINTFORMAT_H
#define TEMPLATES_COLUMNS_PRINTFORMAT_H

#include <string>
#include <string_view>

namespace TessaronResources
{

/// A printf format for one value, taken apart once and used often. The format may come from a file: one that takes
/// other than exactly one value, or a value of another kind than it is given, prints nothing instead of reading stray
/// memory. Numbers have a "." whatever the process's locale.
class PrintFormat
{
public:
    /// What printing is cut to, in bytes; never within a UTF-8 character.
    static constexpr std::size_t longestText = 4095;

    /// Takes conversions d and i for integers; e, f, g, E, F, G for reals; s for texts; flags, width and precision up
    /// to 999; "%%".
    explicit PrintFormat(std::string_view format);

    /// Empty when the format is not one for this kind of value. A real that is no number prints as "nan", "inf".
    std::string print(int value) const;
    std::string print(double value) const;
    std::string print(std::string_view value) const;

    /// The format is "%s" and nothing else: short texts print as they are.
    bool isPlainText() const;
    /// What stands around the value.
    std::string literals() const { return m_before + m_after; }

private:
    std::string finish(std::string body, bool isNumber) const;

    std::string m_before;
    std::string m_after;
    char m_conversion = 0; ///< 0: not usable
    bool m_left = false;
    bool m_zeros = false;
    bool m_plus = false;
    bool m_blank = false;
    bool m_alternate = false;
    int m_width = 0;
    int m_precision = -1;
};

} // namespace TessaronResources

#endif
