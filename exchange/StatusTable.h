#ifndef EXCHANGE_STATUSTABLE_H
#define EXCHANGE_STATUSTABLE_H

#include "util/Export.h"

#include <string>

namespace exchange
{

/// Status codes of engine operations. 0 is success; errors start at -1000 and go down, warnings at -2000.
namespace status
{
constexpr int ok = 0;
constexpr int notASingleClosedRegion = -1002;
constexpr int unknownJob = -1004;
constexpr int toolpathCorrupted = -1006;
constexpr int internalError = -1007;
constexpr int cancelled = -1008;
constexpr int toolDiameterTooSmall = -1012;
constexpr int noToolpath = -1013;
constexpr int noStock = -1022;
constexpr int noPart = -1023;
constexpr int preDrilledHolesCorrupted = -1025;
constexpr int preDrilledHolesDiameterNotSet = -1026;
constexpr int selectedPointOutOfRange = -1027;
constexpr int preDrillTooCloseToPart = -1028;
constexpr int drillTooLarge = -1029;
constexpr int preDrillAtZeroCutDepth = -1030;
constexpr int expertDatabaseCorrupted = -1032;
constexpr int expertDatabaseQueryFailed = -1033;
constexpr int expertNeedsTwoFlutes = -1034;
constexpr int invalidApproach = -1035;
constexpr int invalidDeparture = -1036;
constexpr int invalidInProcessReturn = -1037;
constexpr int noInProcessReturnPath = -1038;
constexpr int templateWriteError = -1039;
constexpr int templateReadError = -1040;
constexpr int templateFormatError = -1041;
constexpr int templateWithoutGuid = -1042;
constexpr int templateColumnsMissing = -1043;
constexpr int templateNameMissing = -1044;
constexpr int templateNameDuplicated = -1045;
constexpr int scallopsLeft = -2000;
constexpr int toolpathDiscarded = -2001;
constexpr int toolpathPartlyGenerated = -2002;
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
