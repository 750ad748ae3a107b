#include "exchange/archive/XmlReader.h"

#include "exchange/archive/BinaryFormat.h"
#include "exchange/archive/Failure.h"
#include "util/text/Ascii.h"
#include "util/text/ReadDouble.h"
#include "util/text/Utf8.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <type_traits>

namespace exchange::archive
{

using boost::archive::archive_exception;

namespace
{

constexpr std::size_t maxTag = 4096;
constexpr std::size_t numberWindow = 64;
constexpr std::size_t maxNumberText = std::size_t{32} * 1024;
constexpr std::ptrdiff_t longestExponent = 16;
constexpr std::string_view numberEnds = "< \t\r\n";

std::string_view trimmed(std::string_view text)
{
    return util::trimmed(text, util::xmlBlanks);
}

/// Splits the next name="value" off a tag's text; false at the end of the text.
bool nextAttribute(std::string_view& text, std::string_view& name, std::string_view& value)
{
    text = trimmed(text);
    if (text.empty())
        return false;
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos)
        failSyntax();
    name = trimmed(text.substr(0, equals));
    text = trimmed(text.substr(equals + 1));
    if (text.empty() || (text.front() != '"' && text.front() != '\''))
        failSyntax();
    const std::size_t end = text.find(text.front(), 1);
    if (end == std::string_view::npos || name.empty())
        failSyntax();
    value = text.substr(1, end - 1);
    text.remove_prefix(end + 1);
    return true;
}

template <class Integer>
Integer wholeNumber(std::string_view text)
{
    Integer number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        failSyntax();
    return number;
}

template <class Number>
std::from_chars_result fromChars(const char* first, const char* last, Number& value)
{
    if constexpr (std::is_floating_point_v<Number>)
        return util::readDouble(first, last, value);
    else
        return std::from_chars(first, last, value);
}

} // namespace

void XmlReader::Attributes::require(unsigned kinds) const
{
    if ((present & kinds) != kinds)
        failSyntax();
}

XmlReader::XmlReader(std::istream& stream) : m_source(stream)
{
    readHead();
}

const char* XmlReader::toTagSlow(std::size_t size)
{
    for (;;)
    {
        const char* at = m_source.cursor();
        while (isSpace(*at))
            ++at;
        m_source.advanceTo(at);
        if (at != m_source.end())
        {
            // A shorter rest than asked for is not an error yet: the zero byte behind it ends every comparison.
            m_source.want(size);
            return m_source.cursor();
        }
        if (!m_source.want(1))
            failInput();
    }
}

/// How far from the cursor the next of some bytes is, of which no more are fetched than it takes: on an open pipe there
/// may be none behind it. `most`, or the rest of the input where that is shorter, when there is none within it.
std::size_t XmlReader::findByte(std::string_view bytes, std::size_t most)
{
    for (std::size_t searched = 0;;)
    {
        const std::string_view window(m_source.cursor(), std::min(m_source.available(), most));
        // The end of a tag is looked for most often.
        const std::size_t found =
            bytes.size() == 1 ? window.find(bytes.front(), searched) : window.find_first_of(bytes, searched);
        if (found != std::string_view::npos)
            return found;
        searched = window.size();
        if (searched == most || !m_source.want(searched + 1))
            return searched;
    }
}

/// The text between "<" and ">" of the next tag, which is consumed.
std::string_view XmlReader::wholeTag()
{
    m_source.advanceTo(toTag(1));
    const std::size_t length = findByte(">", maxTag);
    const char* const start = m_source.cursor();
    const char* const end = start + length;
    if (length == maxTag)
        failSyntax();
    if (end == m_source.end())
        failInput();
    if (*start != '<')
        failSyntax();
    m_source.advanceTo(end + 1);
    return std::string_view(start + 1, static_cast<std::size_t>(end - start - 1));
}

void XmlReader::openSlow(const char* name, std::size_t size)
{
    const std::string_view tag = wholeTag();
    if (tag.substr(0, size) != std::string_view(name, size) || (tag.size() > size && !isSpace(tag[size])))
        failTagMismatch(name);
    parseAttributes(tag.substr(size));
}

void XmlReader::closeSlow(const char* name, std::size_t size)
{
    const std::string_view tag = wholeTag();
    if (tag.empty() || tag.front() != '/')
        failTagMismatch(name);
    if (trimmed(tag.substr(1)) != std::string_view(name, size))
        failTagMismatch(name);
}

void XmlReader::openRoot()
{
    const std::string_view tag = wholeTag();
    const std::size_t size = std::min(tag.find_first_of(" \t\r\n"), tag.size());
    if (size == 0 || tag.front() == '/')
        failSyntax();
    m_rootName = tag.substr(0, size);
    parseAttributes(tag.substr(size));
}

void XmlReader::closeRoot()
{
    close(m_rootName.c_str());
}

void XmlReader::parseAttributes(std::string_view text)
{
    m_attributes.clear();
    std::string_view name;
    std::string_view value;
    while (nextAttribute(text, name, value))
        setAttribute(name, value);
}

void XmlReader::setAttribute(std::string_view name, std::string_view value)
{
    if (name == "class_id" || name == "class_id_reference")
    {
        m_attributes.classId = wholeNumber<int>(value);
        m_attributes.present |= Attributes::classIdKind;
    }
    else if (name == "class_name")
    {
        if (value.size() > maxClassName)
            fail(archive_exception::invalid_class_name);
        m_attributes.className = value;
        m_attributes.present |= Attributes::classNameKind;
    }
    else if (name == "tracking_level")
    {
        const unsigned level = wholeNumber<unsigned>(value);
        if (level > 1)
            failSyntax();
        m_attributes.tracking = level == 1;
        m_attributes.present |= Attributes::trackingKind;
    }
    else if (name == "version")
    {
        m_attributes.version = wholeNumber<unsigned>(value);
        m_attributes.present |= Attributes::versionKind;
    }
    else if (name == "object_id" || name == "object_id_reference")
    {
        if (value.empty() || value.front() != '_')
            failSyntax();
        m_attributes.objectId = wholeNumber<unsigned>(value.substr(1));
        m_attributes.present |= Attributes::objectIdKind;
    }
    // Like the library, ignore what is unknown.
}

void XmlReader::classInfo(bool& tracking, unsigned& version)
{
    m_attributes.require(Attributes::trackingKind | Attributes::versionKind);
    tracking = m_attributes.tracking;
    version = m_attributes.version;
}

int XmlReader::classId()
{
    m_attributes.require(Attributes::classIdKind);
    return m_attributes.classId;
}

std::string_view XmlReader::className()
{
    m_attributes.require(Attributes::classNameKind);
    return m_attributes.className;
}

unsigned XmlReader::objectId()
{
    m_attributes.require(Attributes::objectIdKind);
    return m_attributes.objectId;
}

template <class Number>
Number XmlReader::number()
{
    m_source.advanceTo(toTag(1));
    // The common case has the whole number at hand; otherwise fetch the rest, up to a length that no writer reaches.
    bool isWhole = m_source.available() < numberWindow;
    if (isWhole)
        findByte(numberEnds, maxNumberText);
    for (;;)
    {
        const char* at = m_source.cursor();
        const char* const end = m_source.end();
        if (at[0] == '+' && at[1] != '-')
            ++at;
        const char* const digits = *at == '-' ? at + 1 : at;
        const bool isNumber =
            (*digits >= '0' && *digits <= '9') || (std::is_floating_point_v<Number> && *digits == '.');
        Number value = 0;
        const auto [stop, error] = fromChars(at, end, value);
        if (end - stop < longestExponent && !isWhole)
        {
            findByte(numberEnds, maxNumberText);
            isWhole = true;
            continue;
        }
        if (!isNumber || stop == at)
            failInput();
        // A number too small for a double is a zero.
        const bool isTiny = std::is_floating_point_v<Number> && value == 0;
        if (error != std::errc() && !isTiny)
            failInput();
        m_source.advanceTo(stop);
        return value;
    }
}

template int XmlReader::number<int>();
template unsigned XmlReader::number<unsigned>();
template std::size_t XmlReader::number<std::size_t>();
template double XmlReader::number<double>();

void XmlReader::content(bool& value)
{
    const auto digit = number<unsigned>();
    if (digit > 1)
        failInput();
    value = digit == 1;
}

unsigned XmlReader::itemVersion()
{
    // Versions up to 3 of the library did not store it.
    if (m_version <= 3)
        return 0;
    unsigned version = 0;
    value("item_version", version);
    return version;
}

void XmlReader::content(std::string& value)
{
    value.clear();
    for (;;)
    {
        if (!m_source.want(1))
            failInput();
        const char* const start = m_source.cursor();
        const char* at = start;
        const char* const end = m_source.end();
        while (at != end && *at != '<' && *at != '&')
            ++at;
        value.append(start, at);
        m_source.advanceTo(at);
        if (at == end)
            continue;
        if (*at == '<')
            return;
        readReference(value);
    }
}

void XmlReader::readReference(std::string& to)
{
    static constexpr std::size_t maxReference = 12;
    m_source.want(maxReference);
    const std::string_view window(m_source.cursor(), std::min(m_source.available(), maxReference));
    const std::size_t end = window.find(';');
    if (end == std::string_view::npos)
    {
        if (window.size() < maxReference)
            failInput();
        failSyntax();
    }
    const std::string_view name = window.substr(1, end - 1);
    if (name == "amp")
        to += '&';
    else if (name == "lt")
        to += '<';
    else if (name == "gt")
        to += '>';
    else if (name == "quot")
        to += '"';
    else if (name == "apos")
        to += '\'';
    else if (name.size() > 1 && name.front() == '#')
    {
        const bool hexadecimal = name[1] == 'x';
        const std::string_view digits = name.substr(hexadecimal ? 2 : 1);
        std::uint32_t code = 0;
        const auto [stop, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), code, hexadecimal ? 16 : 10);
        const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
        if (error != std::errc() || stop != digits.data() + digits.size() || code > 0x10FFFF || isSurrogate)
            failSyntax();
        util::appendUtf8(to, code);
    }
    else
        failSyntax();
    m_source.advanceTo(m_source.cursor() + end + 1);
}

void XmlReader::readHead()
{
    static constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (m_source.want(byteOrderMark.size()) &&
        std::string_view(m_source.cursor(), byteOrderMark.size()) == byteOrderMark)
        m_source.advanceTo(m_source.cursor() + byteOrderMark.size());

    const std::string_view declaration = wholeTag();
    if (declaration.substr(0, 5) != "?xml " || declaration.back() != '?')
        failSyntax();
    const std::string_view type = wholeTag();
    static constexpr std::string_view typeStart = "!DOCTYPE";
    if (type.substr(0, typeStart.size()) != typeStart ||
        trimmed(type.substr(typeStart.size())) != "boost_serialization")
        failSyntax();

    std::string_view root = wholeTag();
    static constexpr std::string_view rootName = "boost_serialization";
    if (root.substr(0, rootName.size()) != rootName)
        failTagMismatch(rootName.data());
    root.remove_prefix(rootName.size());
    bool hasSignature = false;
    std::string_view name;
    std::string_view value;
    while (nextAttribute(root, name, value))
    {
        if (name == "signature")
        {
            if (value != signature)
                fail(archive_exception::invalid_signature);
            hasSignature = true;
        }
        else if (name == "version")
            m_version = wholeNumber<unsigned>(value);
    }
    if (!hasSignature)
        fail(archive_exception::invalid_signature);
    if (m_version == 0 || m_version > libraryVersion)
        fail(archive_exception::unsupported_version);
}

void XmlReader::finish()
{
    close("boost_serialization");
}

} // namespace exchange::archive
