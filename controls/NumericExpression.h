#ifndef CONTROLS_NUMERICEXPRESSION_H
#define CONTROLS_NUMERICEXPRESSION_H

#include <string>
#include <string_view>

// Numbers as the edit fields read and show them. Nothing here looks at the process's locale, and nothing throws but for
// want of memory.
namespace mfcutil
{

/// What became of a text read as an arithmetic expression.
struct Evaluation
{
    double value = 0.0;
    bool complete = false; ///< the whole text is an expression
};

/// Evaluates "+", "-", "*", "/" and "(" ")" over decimal numbers, with the usual precedence, left to right. Signs may
/// stand before any operand, blanks between any two tokens. A number has "." or "," before its decimals and may have an
/// exponent. Division by zero gives an infinity or NaN. A text nested deeper than a few hundred levels is not an
/// expression. The value of an incomplete text is what had been computed when the text stopped making sense, or 0.
Evaluation evaluateExpression(std::string_view text);

/// The number that the first characters of a text spell, after blanks; 0 when they spell none. "," counts as ".".
double leadingNumber(std::string_view text);

/// Rounded half up to six decimals, without trailing zeros: "0.625", "3".
std::string formatTidy(double value);
/// The shortest form with so many significant digits, with an exponent where it is needed: "0.333333", "1e+10".
std::string formatGeneral(double value, int digits = 6);
/// With that many decimals: "12.35".
std::string formatDecimals(double value, int decimals);

} // namespace mfcutil

#endif
