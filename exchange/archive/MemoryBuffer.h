#ifndef EXCHANGE_ARCHIVE_MEMORYBUFFER_H
#define EXCHANGE_ARCHIVE_MEMORYBUFFER_H

#include <streambuf>
#include <string_view>

namespace exchange::archive
{

/// A stream buffer that reads bytes where they are.
class MemoryBuffer : public std::streambuf
{
public:
    explicit MemoryBuffer(std::string_view bytes)
    {
        char* const begin = const_cast<char*>(bytes.data());
        setg(begin, begin, begin + bytes.size());
    }

protected:
    pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode) override
    {
        const off_type base =
            from == std::ios_base::beg ? 0 : (from == std::ios_base::end ? egptr() : gptr()) - eback();
        if (base + offset < 0 || base + offset > egptr() - eback())
            return pos_type(off_type(-1));
        setg(eback(), eback() + base + offset, egptr());
        return pos_type(base + offset);
    }
    pos_type seekpos(pos_type position, std::ios_base::openmode mode) override
    {
        return seekoff(off_type(position), std::ios_base::beg, mode);
    }
};

} // namespace exchange::archive

#endif
