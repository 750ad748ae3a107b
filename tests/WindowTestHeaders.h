#ifndef TESTS_WINDOWTESTHEADERS_H
#define TESTS_WINDOWTESTHEADERS_H

// Precompiled for the tests of windows, after TestHeaders.h.
#include <wx/wx.h>

#include <wx/dcgraph.h>
#include <wx/filedlg.h>
#include <wx/grid.h>
#include <wx/ribbon/bar.h>
#include <wx/uiaction.h>

#endif
