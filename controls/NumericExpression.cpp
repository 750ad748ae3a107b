#include "controls/NumericExpression.h"

#include "util/text/Ascii.h"
#include "util/text/ReadDouble.h"

#if defined(__GNUC__) && !defined(__clang__)
// Boost's empty optional attributes, seen through inlining.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include <boost/spirit/include/classic.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <limits>
#include <system_error>
#include <vector>

namespace mfcutil
{
namespace
{

namespace classic = boost::spirit::classic;

constexpr int deepestNesting = 400;

std::string_view withoutLeadingBlanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(util::textBlanks), text.size()));
    return text;
}

// from_chars takes a minus sign only. A number that no double holds counts as a zero or an infinity.
std::from_chars_result readReal(std::string_view text, double& value)
{
    const bool hasPlus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    std::from_chars_result result = util::readDouble(text.data() + (hasPlus ? 1 : 0), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        result.ec = std::errc();
    return result;
}

class Stack
{
public:
    void push(double value) { m_values.push_back(value); }

    template <class Operation>
    void combine(Operation operation)
    {
        if (m_values.size() < 2)
            return;
        const double right = m_values.back();
        m_values.pop_back();
        m_values.back() = operation(m_values.back(), right);
    }

    void negate()
    {
        if (!m_values.empty())
            m_values.back() = -m_values.back();
    }

    double top() const { return m_values.empty() ? 0.0 : m_values.back(); }

private:
    std::vector<double> m_values;
};

// Lets a recursive rule fail, instead of exhausting the thread's stack, once it is nested too deeply.
template <class Subject>
class BoundedParser : public classic::unary<Subject, classic::parser<BoundedParser<Subject>>>
{
public:
    using self_t = BoundedParser;
    using parser_category_t = classic::unary_parser_category;

    BoundedParser(const Subject& subject, int& depth)
        : classic::unary<Subject, classic::parser<BoundedParser>>(subject), m_depth(depth)
    {
    }

    template <class Scanner>
    struct result
    {
        using type = typename classic::parser_result<Subject, Scanner>::type;
    };

    template <class Scanner>
    typename classic::parser_result<self_t, Scanner>::type parse(const Scanner& scan) const
    {
        struct Level
        {
            explicit Level(int& d) : depth(++d) {}
            ~Level() { --depth; }
            Level(const Level&) = delete;
            Level& operator=(const Level&) = delete;
            int& depth;
        } level(m_depth);
        if (level.depth > deepestNesting)
            return scan.no_match();
        return this->subject().parse(scan);
    }

private:
    int& m_depth;
};

template <class Subject>
BoundedParser<Subject> bounded(const Subject& subject, int& depth)
{
    return BoundedParser<Subject>(subject, depth);
}

struct ExpressionGrammar : classic::grammar<ExpressionGrammar>
{
    ExpressionGrammar(Stack& stack, int& depth) : m_stack(stack), m_depth(depth) {}

    template <class Scanner>
    struct definition
    {
        explicit definition(const ExpressionGrammar& self)
        {
            using classic::ch_p;
            using classic::chset_p;
            using classic::lexeme_d;
            using classic::range_p;
            Stack& stack = self.m_stack;
            const auto doing = [&stack](auto operation)
            { return [&stack, operation](const char*, const char*) { stack.combine(operation); }; };
            const auto negate = [&stack](const char*, const char*) { stack.negate(); };
            const auto push = [&stack](const char* first, const char* last)
            { stack.push(leadingNumber(std::string_view(first, last))); };
            // Not digit_p: that one asks the process's locale.
            const auto digit = range_p('0', '9');

            expression = term >> *(('+' >> term)[doing(std::plus<>())] | ('-' >> term)[doing(std::minus<>())]);
            term = factor >> *(('*' >> factor)[doing(std::multiplies<>())] | ('/' >> factor)[doing(std::divides<>())]);
            factor = number[push] |
                     bounded(('(' >> expression >> ')') | ('-' >> factor)[negate] | ('+' >> factor), self.m_depth);
            number = lexeme_d[((+digit >> !(chset_p(".,") >> *digit)) | (chset_p(".,") >> +digit)) >>
                              !(chset_p("eE") >> !chset_p("+-") >> +digit)];
        }

        const classic::rule<Scanner>& start() const { return expression; }

        classic::rule<Scanner> expression;
        classic::rule<Scanner> term;
        classic::rule<Scanner> factor;
        classic::rule<Scanner> number;
    };

    Stack& m_stack;
    int& m_depth;
};

std::string toText(double value, std::chars_format format, int precision)
{
    // The largest double has 309 digits before the point.
    std::array<char, 400> buffer{};
    const std::to_chars_result result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format, precision);
    return std::string(buffer.data(), result.ptr);
}

} // namespace

Evaluation evaluateExpression(std::string_view text)
{
    Stack stack;
    int depth = 0;
    const ExpressionGrammar grammar(stack, depth);
    text = util::trimmed(text); // the skipper takes blanks before tokens, not after the last one
    const char* const first = text.data();
    const auto info = classic::parse(first, first + text.size(), grammar, classic::chset_p(" \t\r\n\v\f"));
    return {stack.top(), info.full};
}

double leadingNumber(std::string_view text)
{
    std::string number(withoutLeadingBlanks(text));
    std::ranges::replace(number, ',', '.');
    double value = 0.0;
    return readReal(number, value).ec == std::errc() ? value : 0.0;
}

std::string formatTidy(double value)
{
    const double rounded = std::floor(value * 1000000.0 + 0.5) / 1000000.0;
    // The largest numbers have no decimals to round, and would overflow.
    std::string text =
        toText(std::isfinite(value) && !std::isfinite(rounded) ? value : rounded, std::chars_format::fixed, 6);
    if (text.find('.') == std::string::npos)
        return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

std::string formatGeneral(double value, int digits)
{
    return toText(value, std::chars_format::general, digits);
}

std::string formatDecimals(double value, int decimals)
{
    return toText(value, std::chars_format::fixed, decimals);
}

} // namespace mfcutil
