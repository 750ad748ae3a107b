#ifndef EXCHANGE_ARCHIVE_XMLREADER_H
#define EXCHANGE_ARCHIVE_XMLREADER_H

#include "exchange/archive/ByteSource.h"

#include <cstring>
#include <string>
#include <string_view>

namespace exchange::archive
{

/// Reads the elements of an XML archive, strictly in the order in which the caller expects them. Start and end tags are
/// compared with the expected names, and every name that differs is "XML start/end tag mismatch"; text that is no
/// archive XML is "unrecognized XML syntax"; text that is no value of the wanted type, and an early end of the input,
/// is "input stream error".
class XmlReader
{
public:
    static constexpr bool blocks = false;

    /// Reads the head of the document.
    explicit XmlReader(std::istream& stream);

    unsigned version() const { return m_version; }

    // Inlined, so that comparing with a name is comparing with a constant.
    [[gnu::always_inline]] void open(const char* name)
    {
        const std::size_t size = std::strlen(name);
        const char* at = toTag(size + 2);
        if (at[0] == '<' && std::memcmp(at + 1, name, size) == 0 && at[size + 1] == '>') [[likely]]
        {
            m_attributes.clear();
            m_source.advanceTo(at + size + 2);
        }
        else
            openSlow(name, size);
    }
    [[gnu::always_inline]] void close(const char* name)
    {
        const std::size_t size = std::strlen(name);
        const char* at = toTag(size + 3);
        if (at[0] == '<' && at[1] == '/' && std::memcmp(at + 2, name, size) == 0 && at[size + 2] == '>') [[likely]]
            m_source.advanceTo(at + size + 3);
        else
            closeSlow(name, size);
    }
    /// The outermost element may have any name, as writers choose it freely; its end tag has to match.
    void openRoot();
    void closeRoot();

    // Attributes of the element opened last; one that is missing is "unrecognized XML syntax".
    void classInfo(bool& tracking, unsigned& version);
    int classId();
    std::string_view className();
    unsigned objectId();

    // Elements that hold one value
    template <class T>
    [[gnu::always_inline]] void value(const char* name, T& value)
    {
        open(name);
        content(value);
        close(name);
    }
    // A value alone, between open() and close()
    void content(bool& value);
    void content(int& value) { value = number<int>(); }
    void content(unsigned& value) { value = number<unsigned>(); }
    void content(std::size_t& value)
    {
        // Most counts are those of coordinates.
        const char* const at = m_source.cursor();
        if (*at >= '0' && *at <= '9' && at[1] == '<') [[likely]]
        {
            value = static_cast<std::size_t>(*at - '0');
            m_source.advanceTo(at + 1);
        }
        else
            value = number<std::size_t>();
    }
    void content(double& value) { value = number<double>(); }
    void content(std::string& value);

    std::size_t count()
    {
        std::size_t count = 0;
        value("count", count);
        return count;
    }
    unsigned itemVersion();

    /// See ByteSource::remaining().
    std::uint64_t remaining() const { return m_source.remaining(); }

    /// Reads the end of the document.
    void finish();

private:
    struct Attributes
    {
        enum Kind : unsigned
        {
            classIdKind = 1,
            classNameKind = 2,
            trackingKind = 4,
            versionKind = 8,
            objectIdKind = 16
        };
        unsigned present = 0;
        int classId = 0;
        bool tracking = false;
        unsigned version = 0;
        unsigned objectId = 0;
        std::string className;

        void clear() { present = 0; }
        void require(unsigned kinds) const;
    };

    static bool isSpace(char character)
    {
        return character == ' ' || character == '\n' || character == '\t' || character == '\r';
    }
    /// The next byte that is no blank, with `size` bytes at hand from there if the input has that many.
    const char* toTag(std::size_t size)
    {
        const char* at = m_source.cursor();
        while (isSpace(*at))
            ++at;
        if (static_cast<std::size_t>(m_source.end() - at) >= size) [[likely]]
            return at;
        m_source.advanceTo(at);
        return toTagSlow(size);
    }
    const char* toTagSlow(std::size_t size);

    void openSlow(const char* name, std::size_t size);
    void closeSlow(const char* name, std::size_t size);
    std::size_t findByte(std::string_view bytes, std::size_t most);
    std::string_view wholeTag();
    void parseAttributes(std::string_view text);
    void setAttribute(std::string_view name, std::string_view value);
    void readHead();
    void readReference(std::string& to);

    template <class Number>
    Number number();

    ByteSource m_source;
    Attributes m_attributes;
    unsigned m_version = 0;
    std::string m_rootName;
};

} // namespace exchange::archive

#endif
