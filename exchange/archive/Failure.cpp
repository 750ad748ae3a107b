#include "exchange/archive/Failure.h"

#include <boost/archive/xml_archive_exception.hpp>

namespace exchange::archive
{

using boost::archive::archive_exception;
using boost::archive::xml_archive_exception;

void fail(ErrorCode code, const char* detail)
{
    throw archive_exception(code, detail);
}

void failInput()
{
    throw archive_exception(archive_exception::input_stream_error);
}

void failSyntax()
{
    throw xml_archive_exception(xml_archive_exception::xml_archive_parsing_error);
}

void failTagMismatch(const char* name)
{
    throw xml_archive_exception(xml_archive_exception::xml_archive_tag_mismatch, name);
}

} // namespace exchange::archive
