#ifndef HOST_PART_H
#define HOST_PART_H

#include "host/Geometry.h"
#include "host/Outline.h"
#include <tessaron/exchange/Tessaron2dInput.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace host
{

/// A part that could not be opened. what() names the file and says what is wrong, in words for the user.
class PartError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// An open part: what to machine, and how.
struct Part
{
    std::string path;
    exchange::Tessaron2dInput input;
    std::vector<Contour> partContours;
    std::vector<Contour> stockContours;

    /// The name to show: that of the file, as words.
    std::string name() const;
    /// The file without its folders.
    std::string fileName() const;
    double number(std::string_view key, double defaultValue = 0.0) const
    {
        return input.parameters.numberOr(key, defaultValue);
    }
    /// Everything that is drawn of the part, from the floor to the top of the stock.
    Box3 box() const;
};

/// Opens a Tessaron2dInput archive, XML or binary.
/// \throws PartError when it cannot be read, or a parameter that the job needs is missing or out of range
Part loadPart(const std::string& path);

} // namespace host

#endif
