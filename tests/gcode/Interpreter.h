#ifndef TESTS_GCODE_INTERPRETER_H
#define TESTS_GCODE_INTERPRETER_H

#include <array>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

/// A reader of programs in RS-274, after "The NIST RS274/NGC Interpreter, Version 3" (NISTIR 6556). It knows the codes
/// of a milling program and refuses all others, and whatever that report calls an error.
namespace rs274
{

inline constexpr double unknown = std::numeric_limits<double>::quiet_NaN();
typedef std::array<double, 3> Place;

struct Motion
{
    enum class Kind
    {
        rapid,
        line,
        clockwise,
        counterClockwise
    };

    Kind kind = Kind::rapid;
    Place start{unknown, unknown, unknown};
    Place end{unknown, unknown, unknown};
    std::array<double, 2> centre{};
    double feed = 0;
    double spindle = 0; ///< negative when it turns counter-clockwise, 0 when it stands
    int coolant = 9;    ///< the M code
    int tool = 0;

    bool isArc() const { return kind == Kind::clockwise || kind == Kind::counterClockwise; }
    /// Radians that an arc turns, positive.
    double turn() const;
};

struct Program
{
    bool inches = false;
    std::vector<Motion> motions;
    std::vector<double> dwells; ///< the numbers of G4
    std::vector<int> tools;     ///< changed to, in order
    std::vector<std::string> comments;
    std::vector<int> lineNumbers;
    double spindleAtEnd = 0;
    int coolantAtEnd = 9;
};

/// An error of a program; names the line.
class Error : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Reads a program to its end.
/// \param absoluteCentres whether I and J are coordinates
/// \throws Error
Program interpret(const std::string& text, bool absoluteCentres = false);

} // namespace rs274

#endif
