#include <tessaron/c/Common.h>

#include "c/Failure.h"
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Assertion.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace c_interface
{

namespace
{

struct StatusText
{
    int status;
    const char* text;
};

constexpr StatusText ownTexts[] = {
    {TESSARON_INVALID_ARGUMENT, "An argument is not valid."},
    {TESSARON_NOT_FOUND, "There is nothing of that name or index."},
    {TESSARON_WRONG_KIND, "The value is of another kind."},
    {TESSARON_OUT_OF_MEMORY, "There is not enough memory."},
    {TESSARON_READ_ERROR, "The file cannot be read."},
    {TESSARON_WRITE_ERROR, "The file cannot be written."},
    {TESSARON_NOT_READY, "The job has no toolpath."},
};

const char* textOf(int status)
{
    const auto* const own = std::find_if(std::begin(ownTexts), std::end(ownTexts),
                                         [status](const StatusText& entry) { return entry.status == status; });
    return own != std::end(ownTexts) ? own->text : exchange::statusText(status).c_str();
}

/// The last failure of a thread, with the texts that it points to.
struct LastError
{
    std::string text;
    std::string file;
    std::string field;
    TessaronError error{TESSARON_OK, "", "", ""};

    /// Without memory for the words, the status and its own text are kept.
    int set(int status, const char* what, const std::string& onField, const std::string& onFile) noexcept
    {
        error = {status, textOf(status), "", ""};
        try
        {
            text = what;
            file = onFile;
            field = onField;
            error = {status, text.c_str(), file.c_str(), field.c_str()};
        }
        catch (const std::bad_alloc&)
        {
        }
        return status;
    }
};

thread_local LastError lastError;

} // namespace

int noteException() noexcept
{
    try
    {
        throw;
    }
    catch (const Failure& failure)
    {
        return lastError.set(failure.status(), failure.what(), failure.field(), failure.file());
    }
    catch (const util::AssertionError& error)
    {
        return lastError.set(TESSARON_INVALID_ARGUMENT, error.what(), {}, {});
    }
    catch (const std::bad_alloc&)
    {
        return lastError.set(TESSARON_OUT_OF_MEMORY, textOf(TESSARON_OUT_OF_MEMORY), {}, {});
    }
    catch (const std::exception& error)
    {
        return lastError.set(TESSARON_INTERNAL_ERROR, error.what(), {}, {});
    }
}

} // namespace c_interface

const TessaronError* tessaronLastError(void)
{
    return &c_interface::lastError.error;
}

const char* tessaronStatusText(int status)
{
    return c_interface::textOf(status);
}

int tessaronVersion(void)
{
    return TESSARON_VERSION;
}

int tessaronHasFeature(const char* name)
{
    static constexpr std::string_view features[] = {"parameters", "inputs",    "toolpaths",  "gcode",
                                                    "jobs",       "templates", "calculator", "expert-data"};
    return name != nullptr && std::find(std::begin(features), std::end(features), name) != std::end(features) ? 1 : 0;
}
