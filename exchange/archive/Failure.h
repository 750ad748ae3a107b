#ifndef EXCHANGE_ARCHIVE_FAILURE_H
#define EXCHANGE_ARCHIVE_FAILURE_H

#include <boost/archive/archive_exception.hpp>

namespace exchange::archive
{

using ErrorCode = boost::archive::archive_exception::exception_code;

/// Throws the archive exception of a code; `detail` follows the library's text.
[[noreturn]] void fail(ErrorCode code, const char* detail = nullptr);
/// "input stream error": the input ends early or holds something that is no value.
[[noreturn]] void failInput();
/// "unrecognized XML syntax".
[[noreturn]] void failSyntax();
/// "XML start/end tag mismatch", followed by the expected name.
[[noreturn]] void failTagMismatch(const char* name);

} // namespace exchange::archive

#endif
