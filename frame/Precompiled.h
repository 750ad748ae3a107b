// What most files of the windows include anyway.
#include <wx/wx.h>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <string>
#include <vector>
