#ifndef TESTS_TOUR_SCREENSHOT_H
#define TESTS_TOUR_SCREENSHOT_H

#include <string>

class wxRect;

namespace tour
{

/// Saves what the screen shows of an area as a PNG file.
/// \returns false when it could not be written
bool saveScreenshot(const wxRect& area, const std::string& path);

} // namespace tour

#endif
