#ifndef TESSARON_EXCHANGE_STATUSTABLE_H
#define TESSARON_EXCHANGE_STATUSTABLE_H

// Stability: stable.

#include <tessaron/util/Export.h>

#include <string>

namespace exchange
{

/// Status codes of engine operations. 0 is success; errors start at -1000 and go down, warnings at -2000. Users see
/// statusText(code); the remarks here say when the engine gives the code.
namespace status
{
constexpr int ok = 0;                                ///< success
constexpr int notASingleClosedRegion = -1002;        ///< the boundary curves do not enclose one single region
constexpr int unknownJob = -1004;                    ///< no job has the given id
constexpr int toolpathCorrupted = -1006;             ///< a toolpath cannot be read
constexpr int internalError = -1007;                 ///< a fault in the engine itself
constexpr int cancelled = -1008;                     ///< the job ended because it was asked to
constexpr int toolDiameterTooSmall = -1012;          ///< "Tool Diameter" is missing or too small to work with
constexpr int noToolpath = -1013;                    ///< the tool fits nowhere
constexpr int noStock = -1022;                       ///< the input has no stock geometry
constexpr int noPart = -1023;                        ///< the input has no part geometry
constexpr int preDrilledHolesCorrupted = -1025;      ///< pre-drilled holes cannot be read
constexpr int preDrilledHolesDiameterNotSet = -1026; ///< holes are to be used, but "Drill Diameter" is missing
constexpr int selectedPointOutOfRange = -1027;       ///< a picked point lies too far from where it is needed
constexpr int preDrillTooCloseToPart = -1028;        ///< a location lies within a tool diameter of the part
constexpr int drillTooLarge = -1029;                 ///< the drill would gouge the part
constexpr int preDrillAtZeroCutDepth = -1030;        ///< pre-drilling where nothing is cut
constexpr int expertDatabaseCorrupted = -1032;       ///< the expert data cannot be opened or read
constexpr int expertDatabaseQueryFailed = -1033;     ///< the expert data refused a query
constexpr int expertNeedsTwoFlutes = -1034;          ///< "Tool Num Flutes" is below 2
constexpr int invalidApproach = -1035;               ///< no approach move fits
constexpr int invalidDeparture = -1036;              ///< no departure move fits
constexpr int invalidInProcessReturn = -1037;        ///< no in-process return move fits
constexpr int noInProcessReturnPath = -1038;         ///< the in-process return parameters leave no path
constexpr int templateWriteError = -1039;            ///< a template file could not be written
constexpr int templateReadError = -1040;             ///< a template file could not be read
constexpr int templateFormatError = -1041;           ///< a file is no template file
constexpr int templateWithoutGuid = -1042;           ///< a template has no "Template Guid"
constexpr int templateColumnsMissing = -1043;        ///< no column definitions are stored yet; no failure
constexpr int templateNameMissing = -1044;           ///< a template has no name to save it by
constexpr int templateNameDuplicated = -1045;        ///< a template of that name exists already
constexpr int scallopsLeft = -2000;                  ///< the toolpath leaves scallops on the floor
constexpr int toolpathDiscarded = -2001;             ///< what could not be entered is left out
constexpr int toolpathPartlyGenerated = -2002;       ///< the in-process return parameters leave parts out
} // namespace status

enum class Severity
{
    none,    ///< not a failure: 0, positive codes, and -1 to -999
    error,   ///< -1000 to -1999: the operation failed
    warning, ///< -2000 and below: there is a result, which the user should review
};

/// The range that a status code lies in, whether or not the table has a text for it.
TESSARON_EXCHANGE_API Severity severity(int code);

/// The text to show the user for a status code; an empty text for a code without one. The reference stays valid for the
/// life of the library. Callable from any thread.
TESSARON_EXCHANGE_API const std::string& statusText(int code);

} // namespace exchange

#endif
