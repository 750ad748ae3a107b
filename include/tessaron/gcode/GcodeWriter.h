#ifndef TESSARON_GCODE_GCODEWRITER_H
#define TESSARON_GCODE_GCODEWRITER_H

// Stability: experimental.

#include <tessaron/gcode/GcodeSettings.h>
#include <tessaron/util/Export.h>

#include <cstddef>
#include <iosfwd>
#include <stdexcept>
#include <string>

/// Writing toolpaths as G-code for milling controls: the language RS-274 as "The NIST RS274/NGC Interpreter, Version 3"
/// (NISTIR 6556) describes it. docs/gcode.md shows a program and lists the settings.
///
/// What becomes of the records:
///  - RapidMove: G0. LinearMove: G1. Arc<1>: G3, Arc<0>: G2, in the plane XY with I and J; an arc that ends at another
///    height is a helix. What rounding leaves without a way has no block.
///  - FeedRate: F in the next block that cuts. SpindleSpeed: S with M3 or M4; 0 stops the spindle.
///  - ToolAxis: must be the z axis, as the program is for a control of three axes.
///  - CustomRecord: "Dwell" and the seconds, "Tool" and a number, "Coolant" and "off", "mist" or "flood"; any other
///  text
///    by the setting "free text".
///
/// Coordinates are rounded to the decimals of the settings. The centre of an arc is placed so that the rounded ends are
/// equally far from it, and rounded to "centre decimals" more: by default the tool stays within a unit of the last
/// decimal of the record's arc. What bends less than half such a unit is a line. The
/// text is the same in every locale. The functions keep no state and may be called from any thread.
namespace exchange
{

struct ToolpathRecords;

/// Why a program was not written.
class TESSARON_EXCHANGE_API GcodeError : public std::runtime_error
{
public:
    /// No record is at fault.
    static constexpr std::size_t noRecord = static_cast<std::size_t>(-1);

    explicit GcodeError(const std::string& text, std::size_t record = noRecord);
    ~GcodeError() override;

    /// The record at fault, counted from 0, which the text names too; or noRecord.
    std::size_t record() const noexcept { return m_record; }

private:
    std::size_t m_record;
};

/// Writes a toolpath as a program. The stream's formatting flags and locale play no part; open it in binary mode.
/// \throws GcodeError for a record that cannot be written: a number that is not finite or beyond 1e7, an arc without a
///     start or that does not reach from its start to its end, a cut before the first feed rate or right after a tool
///     change, a feed rate that is not positive, a tool axis other than z, a text that is not understood; for settings
///     out of range; and when the stream does not take the bytes. What was written by then is no program.
TESSARON_EXCHANGE_API void writeGcode(std::ostream& stream, const ToolpathRecords& toolpath,
                                      const GcodeSettings& settings = GcodeSettings());

/// Writes a toolpath into a file, which appears whole or not at all: what stood under the path stays untouched until
/// the program is complete on the disk.
/// \throws GcodeError naming the file, for all that writeGcode() throws and when the file cannot be written
TESSARON_EXCHANGE_API void writeGcodeFile(const std::string& path, const ToolpathRecords& toolpath,
                                          const GcodeSettings& settings = GcodeSettings());

} // namespace exchange

#endif
