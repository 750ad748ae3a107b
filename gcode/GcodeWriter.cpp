#include <tessaron/gcode/GcodeWriter.h>

#include "gcode/SettingsCheck.h"
#include "gcode/ToolpathProgram.h"
#include "util/platform/AtomicFile.h"
#include <tessaron/exchange/ToolpathRecords.h>

#include <ostream>

namespace exchange
{

namespace
{

// A stream's exceptions are the caller's to ask for; here its state tells what matters.
class ExceptionsOff
{
public:
    explicit ExceptionsOff(std::ostream& stream) : m_stream(stream), m_mask(stream.exceptions())
    {
        m_stream.exceptions(std::ios_base::goodbit);
    }
    ExceptionsOff(const ExceptionsOff&) = delete;
    ExceptionsOff& operator=(const ExceptionsOff&) = delete;
    ~ExceptionsOff()
    {
        try
        {
            m_stream.exceptions(m_mask);
        }
        catch (const std::ios_base::failure&)
        {
            // It is set all the same, and what failed is told otherwise.
        }
    }

private:
    std::ostream& m_stream;
    const std::ios_base::iostate m_mask;
};

} // namespace

GcodeError::GcodeError(const std::string& text, std::size_t record) : std::runtime_error(text), m_record(record) {}

GcodeError::~GcodeError() = default;

void writeGcode(std::ostream& stream, const ToolpathRecords& toolpath, const GcodeSettings& settings)
{
    gcode::checkSettings(settings);
    const ExceptionsOff off(stream);
    gcode::writeProgram(stream, toolpath, settings);
    if (!stream)
        throw GcodeError("The stream does not take the program.");
}

void writeGcodeFile(const std::string& path, const ToolpathRecords& toolpath, const GcodeSettings& settings)
{
    try
    {
        util::AtomicFile file(path);
        try
        {
            writeGcode(file.stream(), toolpath, settings);
        }
        catch (const GcodeError& error)
        {
            // Where the file is to blame, commit() tells the reason.
            if (!file.failed())
                throw GcodeError("Cannot write '" + path + "': " + error.what(), error.record());
        }
        file.commit();
    }
    catch (const util::AtomicFileError& error)
    {
        throw GcodeError(error.what());
    }
}

} // namespace exchange
