#ifndef HOST_SCREENSHOT_H
#define HOST_SCREENSHOT_H

#include <string>

class wxRect;

namespace host
{

/// Saves what the screen shows of an area as a PNG file.
/// \returns false when it could not be written
bool saveScreenshot(const wxRect& area, const std::string& path);

} // namespace host

#endif
