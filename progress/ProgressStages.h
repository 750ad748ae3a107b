#ifndef PROGRESS_PROGRESSSTAGES_H
#define PROGRESS_PROGRESSSTAGES_H

#include <tessaron/util/Parameterized.h>

#include <functional>
#include <string>

namespace TessaronResources
{

/// Which of the known stages a text may tell about.
enum class StageScope
{
    job,    ///< all of them
    worker, ///< a worker line never tells about an import
};

/// The text of an id of the string table.
typedef std::function<std::string(int textId)> StringSource;

/// A number without its fraction, kept within what an integer holds; 0 for what is no number.
int truncated(double value);

/// The text that tells about the running stages: that of the first known stage, in the order of the table, that is
/// among them; empty when none is.
std::string stageText(const util::Parameterized& stages, StageScope scope, const StringSource& strings);

/// Puts an integer into a format of the string table.
std::string formatCount(const std::string& format, int count);

} // namespace TessaronResources

#endif
