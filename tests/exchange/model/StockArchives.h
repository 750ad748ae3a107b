#ifndef TESTS_EXCHANGE_MODEL_STOCKARCHIVES_H
#define TESTS_EXCHANGE_MODEL_STOCKARCHIVES_H

// Writing and reading records through the archive library's own classes, as a host does that has archives of its own,
// so that a fault in a record's routine is told apart from one in the project's archive classes; and edits to the text
// that make it what other builds write.

#include <tessaron/exchange/OrrimantInputSerialization.h>
#include <tessaron/exchange/Tessaron3dInputSerialization.h>
#include <tessaron/exchange/Tessaron5xInputSerialization.h>
#include <tessaron/exchange/ToolpathRecordsSerialization.h>

#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/archive/xml_iarchive.hpp>
#include <boost/archive/xml_oarchive.hpp>

#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>

namespace testing_support
{

template <class T>
std::string writeXml(const T& record)
{
    std::ostringstream stream;
    {
        boost::archive::xml_oarchive archive(stream);
        archive << boost::serialization::make_nvp("root", record);
    }
    return stream.str();
}

template <class T>
void readXml(const std::string& text, T& record)
{
    std::istringstream stream(text);
    boost::archive::xml_iarchive archive(stream, boost::archive::no_xml_tag_checking | boost::archive::no_header);
    // Without the head, the archive's destructor does not look for a closing root element after a failed read.
    std::string line;
    for (int i = 0; i < 3; ++i)
        std::getline(stream, line);
    archive >> boost::serialization::make_nvp("root", record);
}

template <class T>
T readXml(const std::string& text)
{
    T record;
    readXml(text, record);
    return record;
}

/// What comes back from a binary archive.
template <class T>
T throughBinary(const T& record)
{
    std::stringstream stream;
    {
        boost::archive::binary_oarchive archive(stream);
        archive << boost::serialization::make_nvp("root", record);
    }
    T back;
    boost::archive::binary_iarchive archive(stream);
    archive >> boost::serialization::make_nvp("root", back);
    return back;
}

/// Replaces the first match, which must exist.
inline std::string replaced(const std::string& text, const std::string& pattern, const std::string& with)
{
    const std::regex regex(pattern);
    if (!std::regex_search(text, regex))
        throw std::logic_error("the archive has no " + pattern + ":\n" + text);
    return std::regex_replace(text, regex, with, std::regex_constants::format_first_only);
}

/// The archive with another class version at the first element of that name that describes its class.
inline std::string atVersion(const std::string& text, const std::string& element, unsigned int version)
{
    return replaced(text, "(<" + element + " class_id=\"[0-9]+\"[^>]* version=)\"[0-9]+\"",
                    "$1\"" + std::to_string(version) + "\"");
}

/// The archive without the first element of that name.
inline std::string without(const std::string& text, const std::string& element)
{
    return replaced(text, "\\s*<" + element + "[ >][\\s\\S]*?</" + element + ">", "");
}

} // namespace testing_support

#endif
