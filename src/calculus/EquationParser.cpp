#include "calculus/EquationParser.h"

#include "frame/LoadLanguageCode.h"

#include <muParser.h>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <numbers>

// The grammar is muParser's, with numbers of our own: a suffix directly behind the digits scales
// them, 2.2k or 100m, unless a letter or digit follows. So "2n" is 2e-9 and "2*n" twice n. Faults
// come as codes of the library, with places that differ by kind; they are brought to the byte where
// the user has to look, and to texts of our own.

namespace {

constexpr double Turn = 2.0 * std::numbers::pi;

struct Suffix {
    std::string_view Text;
    double Factor;
};
constexpr Suffix Suffixes[] = {
    {"f", 1e-15},     {"p", 1e-12},     {"n", 1e-9}, {"u", 1e-6},
    {"\u00B5", 1e-6}, {"\u03BC", 1e-6},  // the micro sign and the Greek letter look the same
    {"m", 1e-3},      {"k", 1e3},       {"M", 1e6},  {"G", 1e9},
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsNameChar(char c) {
    return IsDigit(c) || c == '_' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsLead(char c) {  // the first byte of a UTF-8 character
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

// The library's callback: reads a number with its suffix and moves `position` behind it.
int ReadNumber(const char* at, int* position, double* value) {
    if (!IsDigit(at[0]) && !(at[0] == '.' && IsDigit(at[1]))) return 0;
    const std::string_view text(at);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), *value);
    auto size = static_cast<std::size_t>(end - text.data());
    if (error == std::errc::result_out_of_range) {
        const bool tiny = text.substr(0, size).find('-') != std::string_view::npos;
        *value = tiny ? 0.0 : std::numeric_limits<double>::infinity();
    }
    for (const Suffix& suffix : Suffixes) {
        if (!text.substr(size).starts_with(suffix.Text)) continue;
        const std::string_view behind = text.substr(size + suffix.Text.size());
        if (!behind.empty() && IsNameChar(behind.front())) continue;
        *value *= suffix.Factor;
        size += suffix.Text.size();
        break;
    }
    *position += static_cast<int>(size);
    return 1;
}

// The part of a period, 0..1, that a phase in radians has gone.
double PartOf(double phase) {
    return phase / Turn - std::floor(phase / Turn);
}

double SincOf(double v) {
    const double angle = std::numbers::pi * v;
    return angle == 0.0 ? 1.0 : std::sin(angle) / angle;
}
double SquareOf(double phase) {
    return PartOf(phase) < 0.5 ? 1.0 : -1.0;
}
double SawOf(double phase) {
    return 2.0 * PartOf(phase) - 1.0;
}
// In step with the sine: 0 at 0, 1 at a quarter, -1 at three quarters.
double TriOf(double phase) {
    return 1.0 - 4.0 * std::abs(PartOf(phase + Turn / 4.0) - 0.5);
}
double StepOf(double v) {
    return v >= 0.0 ? 1.0 : 0.0;
}
double RectOf(double v) {
    return std::abs(v) <= 0.5 ? 1.0 : 0.0;
}
double GaussOf(double v) {
    return std::exp(-v * v / 2.0);
}
double ModOf(double a, double b) {
    return a - b * std::floor(a / b);
}
double FloorOf(double v) {
    return std::floor(v);
}
double CeilOf(double v) {
    return std::ceil(v);
}

// Noise is a function of its place, not a sequence, so that a preview of some of the dots shows
// the values that are inserted.
struct NoisePlace {
    std::uint64_t Seed, Dot, Call;  // Call counts the noise() of one dot
};

// The output function of SplitMix64 (G. Steele, D. Lea, C. Flood, 2014).
std::uint64_t MixBits(std::uint64_t z) {
    z += 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31U);
}

double NoiseOf(void* place) {
    auto& noise = *static_cast<NoisePlace*>(place);
    const std::uint64_t bits = MixBits(MixBits(MixBits(noise.Seed) + noise.Dot) + noise.Call++);
    return static_cast<double>(bits >> 11U) / 4503599627370496.0 - 1.0;  // 53 bits over 2^52
}

// What an equation may name, bound to the values of one dot.
struct DotValues {
    double T = 0.0, X = 0.0, N = 0.0;
    NoisePlace Noise{};
};

void DefineNames(mu::Parser& parser, DotValues& values, double rail) {
    parser.AddValIdent(ReadNumber);
    parser.ClearConst();
    parser.DefineConst("pi", std::numbers::pi);
    parser.DefineConst("e", std::numbers::e);
    parser.DefineConst("A", rail);
    parser.DefineVar("t", &values.T);
    parser.DefineVar("x", &values.X);
    parser.DefineVar("n", &values.N);
    parser.DefineFun("sinc", SincOf);
    parser.DefineFun("square", SquareOf);
    parser.DefineFun("saw", SawOf);
    parser.DefineFun("tri", TriOf);
    parser.DefineFun("step", StepOf);
    parser.DefineFun("rect", RectOf);
    parser.DefineFun("gauss", GaussOf);
    parser.DefineFun("mod", ModOf);
    parser.DefineFun("floor", FloorOf);
    parser.DefineFun("ceil", CeilOf);
    parser.DefineFunUserData("noise", NoiseOf, &values.Noise, false);
}

void SetDot(DotValues& values, const EquationScales& scales, double n) {
    values.N = n;
    values.X = scales.Dots > 1 ? n / (scales.Dots - 1) : 0.0;
    values.T = (scales.Start + n) * scales.Period / std::max(scales.MaxDots, 1);
    values.Noise = {scales.Seed, static_cast<std::uint64_t>(n), 0};
}

// One "=" is an assignment for the library, and a quote begins a text.
EquationFault FindForbidden(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"' || (c >= 0 && c < ' ' && c != '\t'))
            return {EquationError::Character, i, std::string(1, c)};
        if (c != '=') continue;
        if (text.substr(i).starts_with("==")) {
            ++i;
        } else if (i == 0 || std::string_view("<>!").find(text[i - 1]) == std::string_view::npos) {
            return {EquationError::Assignment, i, "="};
        }
    }
    return {};
}

// A comma outside of all parentheses makes several results of one expression.
std::size_t FreeComma(std::string_view text) {
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '(') ++depth;
        if (text[i] == ')') --depth;
        if (text[i] == ',' && depth == 0) return i;
    }
    return 0;
}

struct ErrorRow {
    mu::EErrorCodes Code;
    EquationError Error;
};
constexpr ErrorRow Errors[] = {
    {mu::ecUNEXPECTED_OPERATOR, EquationError::Operator},
    {mu::ecUNASSIGNABLE_TOKEN, EquationError::Name},
    {mu::ecUNEXPECTED_EOF, EquationError::End},
    {mu::ecUNEXPECTED_ARG_SEP, EquationError::Comma},
    {mu::ecUNEXPECTED_ARG, EquationError::Value},
    {mu::ecUNEXPECTED_VAL, EquationError::Value},
    {mu::ecUNEXPECTED_VAR, EquationError::Value},
    {mu::ecUNEXPECTED_PARENS, EquationError::Parenthesis},
    {mu::ecMISSING_PARENS, EquationError::MissingParenthesis},
    {mu::ecUNEXPECTED_FUN, EquationError::Value},
    {mu::ecTOO_MANY_PARAMS, EquationError::TooManyArguments},
    {mu::ecTOO_FEW_PARAMS, EquationError::TooFewArguments},
    {mu::ecEMPTY_EXPRESSION, EquationError::Empty},
    {mu::ecUNEXPECTED_CONDITIONAL, EquationError::Operator},
    {mu::ecMISSING_ELSE_CLAUSE, EquationError::MissingElse},
    {mu::ecMISPLACED_COLON, EquationError::Colon},
    {mu::ecINTERNAL_ERROR, EquationError::End},  // a sign without anything behind it
};

// Some kinds are reported behind what is wrong, those of arguments behind the closing parenthesis.
void FixPlace(EquationFault& fault, std::string_view text) {
    fault.Byte = std::min(fault.Byte, text.size());
    if (fault.Error == EquationError::Colon) fault.Token = ":";
    const bool atEnd = fault.Error == EquationError::End || fault.Token.empty() ||
                       fault.Error == EquationError::MissingParenthesis;
    if (atEnd || text.substr(fault.Byte).starts_with(fault.Token)) return;
    const std::size_t before = text.substr(0, fault.Byte).rfind(fault.Token);
    if (before != std::string_view::npos) fault.Byte = before;
}

// The library takes all that it does not know for one token; the first character is to blame.
void FixToken(EquationFault& fault, std::string_view text, const mu::Parser& parser) {
    if (fault.Error != EquationError::Name || fault.Byte >= text.size()) return;
    if (!IsNameChar(text[fault.Byte])) {
        std::size_t end = fault.Byte + 1;
        while (end < text.size() && !IsLead(text[end])) ++end;
        fault.Token = text.substr(fault.Byte, end - fault.Byte);
        fault.Error = EquationError::Character;
    } else if (parser.GetFunDef().contains(fault.Token)) {
        fault.Error = EquationError::NoArguments;
    }
}

EquationFault FaultOf(const mu::ParserError& error, std::string_view text,
                      const mu::Parser& parser) {
    const auto* row = std::ranges::find(Errors, error.GetCode(), &ErrorRow::Code);
    EquationFault fault;
    fault.Error = row == std::end(Errors) ? EquationError::Other : row->Error;
    fault.Byte = error.GetPos() < 0 ? text.size() : static_cast<std::size_t>(error.GetPos());
    fault.Token = error.GetToken();
    FixPlace(fault, text);
    FixToken(fault, text, parser);
    return fault;
}

struct ErrorText {
    EquationError Error;
    std::string_view English, Chinese;  // %1 is the token
};
constexpr ErrorText Texts[] = {
    {EquationError::Empty, "an expression is missing", "缺少表达式"},
    {EquationError::TooLong, "the expression is too long", "表达式过长"},
    {EquationError::Name, R"("%1" is unknown)", "未知名称“%1”"},
    {EquationError::NoArguments, R"("%1" needs its arguments in ( ))", "“%1”后缺少括号和参数"},
    {EquationError::Character, R"(the character "%1" cannot stand here)", "此处不能使用字符“%1”"},
    {EquationError::Operator, R"(the operator "%1" cannot stand here)", "此处不能使用运算符“%1”"},
    {EquationError::Value, R"(an operator is missing in front of "%1")", "“%1”前缺少运算符"},
    {EquationError::Parenthesis, R"(the parenthesis "%1" cannot stand here)",
     "此处不能使用括号“%1”"},
    {EquationError::Comma, "a comma cannot stand here", "此处不能使用逗号"},
    {EquationError::Colon, "a colon cannot stand here", "此处不能使用冒号"},
    {EquationError::Assignment, R"(a single "=" cannot stand here)", "此处不能使用单个“=”"},
    {EquationError::End, "the expression ends too early", "表达式不完整"},
    {EquationError::MissingParenthesis, "a closing parenthesis is missing", "缺少右括号"},
    {EquationError::MissingElse, R"("?" needs a ":" behind it)", "“?”后缺少“:”"},
    {EquationError::TooManyArguments, R"("%1" has too many arguments)", "“%1”的参数过多"},
    {EquationError::TooFewArguments, R"("%1" has too few arguments)", "“%1”的参数过少"},
    {EquationError::Other, "the expression cannot be read", "无法解析表达式"},
};

}  // namespace

EquationFault EvaluateEquation(std::string_view text, const EquationScales& scales,
                               std::span<WaveDot> dots) {
    if (ColumnOf(text, text.size()) > LongestEquation)
        return {EquationError::TooLong, text.size(), {}};
    if (text.find_first_not_of(" \t") == std::string_view::npos)
        return {EquationError::Empty, text.size(), {}};
    EquationFault fault = FindForbidden(text);
    if (fault.Error != EquationError::None) return fault;
    DotValues values;
    mu::Parser parser;
    try {
        DefineNames(parser, values, scales.Vpp / 2.0);
        parser.SetExpr(std::string(text));
        SetDot(values, scales, 0.0);
        parser.Eval();
        if (parser.GetNumResults() != 1) return {EquationError::Comma, FreeComma(text), ","};
        for (WaveDot& dot : dots) {
            SetDot(values, scales, dot.X);
            dot.Y = parser.Eval();
        }
    } catch (const mu::ParserError& error) {
        return FaultOf(error, text, parser);
    }
    return {};
}

std::int32_t ColumnOf(std::string_view text, std::size_t byte) {
    return static_cast<std::int32_t>(std::ranges::count_if(text.substr(0, byte), IsLead));
}

std::string FaultText(const EquationFault& fault, std::string_view text) {
    const auto* row = std::ranges::find(Texts, fault.Error, &ErrorText::Error);
    if (row == std::end(Texts)) return {};
    std::string reason(PickText(row->English, row->Chinese));
    if (const std::size_t at = reason.find("%1"); at != std::string::npos)
        reason.replace(at, 2, fault.Token);
    const std::string column = std::to_string(ColumnOf(text, fault.Byte) + 1);
    return std::string(PickText("Column ", "第 "))
        .append(column)
        .append(PickText(": ", " 列："))
        .append(reason);
}
