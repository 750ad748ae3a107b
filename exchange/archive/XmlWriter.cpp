#include "exchange/archive/XmlWriter.h"

#include <algorithm>

namespace exchange::archive
{

namespace
{

const char* reference(char character)
{
    switch (character)
    {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&apos;";
    default:
        return nullptr;
    }
}

} // namespace

XmlWriter::XmlWriter(std::ostream& stream) : m_sink(stream)
{
    append("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\" ?>\n"
           "<!DOCTYPE boost_serialization>\n"
           "<boost_serialization signature=\"serialization::archive\" version=\"10\">\n");
}

void XmlWriter::attribute(const char* text, long long value)
{
    append(text);
    numberText(value);
    append("\"");
}

void XmlWriter::classInfo(int classId, bool tracking, unsigned version)
{
    newClass(classId, nullptr, tracking, version);
}

void XmlWriter::newClass(int classId, const char* key, bool tracking, unsigned version)
{
    attribute(" class_id=\"", classId);
    if (key != nullptr)
    {
        append(" class_name=\"");
        append(key);
        append("\"");
    }
    attribute(" tracking_level=\"", tracking ? 1 : 0);
    attribute(" version=\"", version);
}

void XmlWriter::knownClass(int classId)
{
    attribute(" class_id_reference=\"", classId);
}

void XmlWriter::nullPointer()
{
    attribute(" class_id=\"", -1);
}

void XmlWriter::newObject(unsigned objectId)
{
    attribute(" object_id=\"_", objectId);
}

void XmlWriter::knownObject(unsigned objectId)
{
    attribute(" object_id_reference=\"_", objectId);
}

void XmlWriter::value(const char* name, const std::string& value)
{
    m_sink.advanceTo(beginValue(name));
    content(value);
    endValue(m_sink.reserve(std::strlen(name) + 3), name);
}

void XmlWriter::content(const std::string& value)
{
    const char* plain = value.data();
    const char* const end = plain + value.size();
    for (const char* at = plain; at != end; ++at)
        if (const char* const escaped = reference(*at))
        {
            m_sink.append(plain, static_cast<std::size_t>(at - plain));
            append(escaped);
            plain = at + 1;
        }
    m_sink.append(plain, static_cast<std::size_t>(end - plain));
}

char* XmlWriter::deepIndent(std::size_t room)
{
    m_sink.append(lineOfTabs, 1);
    constexpr std::size_t most = sizeof lineOfTabs - 2;
    for (std::size_t left = static_cast<std::size_t>(m_depth); left > 0;)
    {
        const std::size_t piece = std::min(left, most);
        m_sink.append(lineOfTabs + 1, piece);
        left -= piece;
    }
    return m_sink.reserve(room);
}

void XmlWriter::finish()
{
    // The library's writers close the document with two line ends.
    append("\n</boost_serialization>\n\n");
    m_sink.flush();
}

} // namespace exchange::archive
