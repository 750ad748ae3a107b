#ifndef C_FAILURE_H
#define C_FAILURE_H

#include <tessaron/c/Common.h>
#include <tessaron/exchange/Archives.h>

#include <cstddef>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace c_interface
{

/// Why a call fails, as tessaronLastError() tells it.
class Failure : public std::runtime_error
{
public:
    Failure(int status, const std::string& text, std::string field = {}, std::string file = {})
        : std::runtime_error(text), m_status(status), m_field(std::move(field)), m_file(std::move(file))
    {
    }

    int status() const { return m_status; }
    const std::string& field() const { return m_field; }
    const std::string& file() const { return m_file; }

private:
    int m_status;
    std::string m_field;
    std::string m_file;
};

/// Keeps the exception that is being handled as the last error of the calling thread.
/// \returns its status
int noteException() noexcept;

/// Runs what a function of the interface does; no exception may reach a caller in C.
template <class Function>
int guarded(const Function& function) noexcept
{
    try
    {
        function();
        return TESSARON_OK;
    }
    catch (...)
    {
        return noteException();
    }
}

/// Refuses a null pointer; `name` is the argument's.
template <class Pointer>
Pointer needed(Pointer pointer, const char* name)
{
    if (pointer == nullptr)
        throw Failure(TESSARON_INVALID_ARGUMENT, std::string("The argument '") + name + "' must not be null.", name);
    return pointer;
}

/// Refuses a structure that is smaller than its oldest layout: one whose `size` was not set.
template <class Structure>
Structure& sized(Structure* structure, const char* name)
{
    if (needed(structure, name)->size < sizeof(Structure))
        throw Failure(TESSARON_INVALID_ARGUMENT, std::string("The argument '") + name + "' has no size set.", name);
    return *structure;
}

/// Refuses an index behind the end of what there are `count` of.
inline std::size_t indexBelow(std::size_t index, std::size_t count)
{
    if (index >= count)
        throw Failure(TESSARON_NOT_FOUND,
                      "There is nothing at index " + std::to_string(index) + " of " + std::to_string(count) + ".");
    return index;
}

/// Reads or writes the file `path`; what goes wrong has the status given, and the file.
template <class Function>
void withFile(int status, const char* path, const Function& function)
{
    needed(path, "path");
    try
    {
        function();
    }
    catch (const std::bad_alloc&)
    {
        throw;
    }
    catch (const std::exception& error)
    {
        throw Failure(status, error.what(), {}, path);
    }
}

/// The archive format that a caller asks for.
inline exchange::ArchiveFormat archiveFormat(int format)
{
    switch (format)
    {
    case TESSARON_FORMAT_XML:
        return exchange::ArchiveFormat::xml;
    case TESSARON_FORMAT_BINARY:
        return exchange::ArchiveFormat::binary;
    }
    throw Failure(TESSARON_INVALID_ARGUMENT, "There is no such archive format.", "format");
}

} // namespace c_interface

#endif
