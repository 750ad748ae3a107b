#ifndef EXCHANGE_ARCHIVE_XMLWRITER_H
#define EXCHANGE_ARCHIVE_XMLWRITER_H

#include "exchange/archive/ByteSink.h"
#include "exchange/archive/NumberText.h"

#include <charconv>
#include <cstring>
#include <string>
#include <string_view>

namespace exchange::archive
{

/// Writes the elements of an XML archive: the text form, without any notion of classes or objects.
///
/// An element is openHead(), any attributes, closeHead(), the content, close(); or openElement() in place of the first
/// three when there are no attributes; or value() for an element that holds one value.
class XmlWriter
{
public:
    /// Arrays of numbers are element by element, each in an element of its own.
    static constexpr bool blocks = false;

    explicit XmlWriter(std::ostream& stream);

    // Inlined, so that copying a name is copying a constant.
    [[gnu::always_inline]] void openHead(const char* name)
    {
        char* to = indented(name);
        m_sink.advanceTo(to);
    }
    void closeHead()
    {
        char* to = m_sink.reserve(1);
        *to++ = '>';
        m_sink.advanceTo(to);
        ++m_depth;
        m_indentNext = false;
    }
    [[gnu::always_inline]] void openElement(const char* name)
    {
        char* to = indented(name);
        *to++ = '>';
        m_sink.advanceTo(to);
        ++m_depth;
        m_indentNext = false;
    }
    [[gnu::always_inline]] void close(const char* name)
    {
        --m_depth;
        const std::size_t room = std::strlen(name) + maxIndent + 4;
        char* to = m_sink.reserve(room);
        if (m_indentNext)
            to = indent(to, room);
        m_sink.advanceTo(endTag(to, name));
        m_indentNext = true;
    }

    // Attributes
    void classInfo(int classId, bool tracking, unsigned version);
    void newClass(int classId, const char* key, bool tracking, unsigned version);
    void knownClass(int classId);
    void nullPointer();
    void newObject(unsigned objectId);
    void knownObject(unsigned objectId);

    // Elements that hold one value
    [[gnu::always_inline]] void value(const char* name, bool value) { number(name, value ? 1 : 0); }
    [[gnu::always_inline]] void value(const char* name, int value) { number(name, value); }
    [[gnu::always_inline]] void value(const char* name, unsigned value) { number(name, value); }
    [[gnu::always_inline]] void value(const char* name, double value)
    {
        char* to = beginValue(name);
        to = formatDouble(to, value);
        endValue(to, name);
    }
    void value(const char* name, const std::string& value);
    void count(std::size_t count) { number("count", count); }
    void itemVersion(unsigned version) { number("item_version", version); }

    // A value alone, between openHead(), closeHead() and close()
    void content(bool value) { content(value ? 1ul : 0ul); }
    void content(int value) { numberText(value); }
    void content(unsigned value) { numberText(value); }
    void content(unsigned long value) { numberText(value); }
    void content(double value) { m_sink.advanceTo(formatDouble(m_sink.reserve(maxNumber), value)); }
    void content(const std::string& value);

    /// Ends the document and hands everything to the stream.
    void finish();

private:
    static constexpr std::size_t maxIndent = 33;
    static constexpr std::size_t maxNumber = maxDoubleText;

    static constexpr char lineOfTabs[] = "\n\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t";
    static_assert(sizeof lineOfTabs == maxIndent);

    /// Starts a line in the first bytes of a reservation of `room` bytes, and reserves anew where they do not suffice.
    [[gnu::always_inline]] char* indent(char* to, std::size_t room)
    {
        if (m_depth > 15) [[unlikely]]
            return deepIndent(room);
        std::memcpy(to, lineOfTabs, 16);
        return to + 1 + m_depth;
    }
    char* deepIndent(std::size_t room);
    [[gnu::always_inline]] char* indented(const char* name)
    {
        const std::size_t room = std::strlen(name) + maxIndent + 2;
        char* to = m_sink.reserve(room);
        if (m_depth > 0)
            to = indent(to, room);
        *to++ = '<';
        return copied(to, name);
    }
    [[gnu::always_inline]] static char* copied(char* to, std::string_view text)
    {
        std::memcpy(to, text.data(), text.size());
        return to + text.size();
    }
    [[gnu::always_inline]] static char* endTag(char* to, const char* name)
    {
        *to++ = '<';
        *to++ = '/';
        to = copied(to, name);
        *to++ = '>';
        return to;
    }
    [[gnu::always_inline]] char* beginValue(const char* name)
    {
        const std::size_t room = 2 * std::strlen(name) + maxIndent + maxNumber + 8;
        char* to = m_sink.reserve(room);
        if (m_depth > 0)
            to = indent(to, room);
        *to++ = '<';
        to = copied(to, name);
        *to++ = '>';
        return to;
    }
    [[gnu::always_inline]] void endValue(char* to, const char* name)
    {
        m_sink.advanceTo(endTag(to, name));
        m_indentNext = true;
    }
    template <class Integer>
    [[gnu::always_inline]] void number(const char* name, Integer value)
    {
        char* to = beginValue(name);
        if (value >= 0 && value <= 9)
            *to++ = static_cast<char>('0' + value);
        else
            to = std::to_chars(to, to + maxNumber, value).ptr;
        endValue(to, name);
    }

    template <class Integer>
    void numberText(Integer value)
    {
        char* const to = m_sink.reserve(maxNumber);
        m_sink.advanceTo(std::to_chars(to, to + maxNumber, value).ptr);
    }

    void attribute(const char* text, long long value);
    void append(const char* text) { m_sink.append(text, std::strlen(text)); }

    ByteSink m_sink;
    int m_depth = 0;
    bool m_indentNext = false;
};

} // namespace exchange::archive

#endif
