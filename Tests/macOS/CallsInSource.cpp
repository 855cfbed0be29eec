#include "CallsInSource.hpp"

#include <algorithm>
#include <cctype>
#include <optional>
#include <utility>

namespace vireline {
namespace {

constexpr auto none = std::string_view::npos;

bool isWordCharacter(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

bool isSpace(char character) {
    return std::isspace(static_cast<unsigned char>(character)) != 0;
}

/// Where the comment or the quoted text that begins at `at` ends; nothing if none begins there.
std::optional<std::size_t> endOfWords(std::string_view text, std::size_t at) {
    if (text.substr(at).starts_with("//"))
        return std::min(text.find('\n', at), text.size());
    if (text.substr(at).starts_with("/*"))
        return std::min(text.find("*/", at), text.size() - 2) + 2;
    const char quote = text[at];
    const bool separatesDigits = quote == '\'' && at > 0 && isWordCharacter(text[at - 1]);
    if ((quote != '"' && quote != '\'') || separatesDigits)
        return std::nullopt;
    std::size_t end = at + 1;
    while (end < text.size() && text[end] != quote)
        end += text[end] == '\\' ? 2 : 1;
    return std::min(end + 1, text.size());
}

/// Every place where `word` stands as a word of its own.
std::vector<std::size_t> places(std::string_view text, std::string_view word) {
    std::vector<std::size_t> found;
    for (auto at = text.find(word); at != none; at = text.find(word, at + 1)) {
        const auto behind = at + word.size();
        if ((at == 0 || !isWordCharacter(text[at - 1])) &&
            (behind == text.size() || !isWordCharacter(text[behind])))
            found.push_back(at);
    }
    return found;
}

/// Behind the bracket that closes the one at `open`.
std::size_t behindBrackets(std::string_view code, std::size_t open) {
    int depth = 0;
    for (std::size_t at = open; at < code.size(); ++at) {
        const char character = code[at];
        if (character == '(' || character == '{' || character == '[')
            ++depth;
        else if ((character == ')' || character == '}' || character == ']') && --depth == 0)
            return at + 1;
    }
    return code.size();
}

std::size_t behindSpace(std::string_view code, std::size_t at) {
    while (at < code.size() && isSpace(code[at]))
        ++at;
    return at;
}

std::string_view lineBefore(std::string_view code, std::size_t at) {
    const auto lineBreak = code.rfind('\n', at);
    const auto start = lineBreak == none ? 0 : lineBreak + 1;
    return code.substr(start, at - start);
}

std::string_view wordBefore(std::string_view code, std::size_t at) {
    std::size_t end = at;
    while (end > 0 && isSpace(code[end - 1]))
        --end;
    std::size_t start = end;
    while (start > 0 && isWordCharacter(code[start - 1]))
        --start;
    return code.substr(start, end - start);
}

/// The body that begins with a brace before any statement ends, wherever it does.
std::optional<std::size_t> endOfBody(std::string_view code, std::size_t from) {
    const auto brace = code.find_first_of("{;", from);
    return brace == none || code[brace] == ';' ? std::nullopt
                                               : std::optional{behindBrackets(code, brace)};
}

/// Of a C++ function whose parameters begin at `parameters`. An initialiser's braces are not the
/// body's: they stand behind a word.
std::optional<std::size_t> endOfFunction(std::string_view code, std::size_t parameters) {
    std::size_t at = behindSpace(code, behindBrackets(code, parameters));
    const bool initialises = at < code.size() && code[at] == ':';
    const auto follows = [&](std::string_view word) { return code.substr(at).starts_with(word); };
    if (!initialises && !follows("{") && !follows("const") && !follows("override") &&
        !follows("noexcept") && !follows("->"))
        return std::nullopt;
    for (; at < code.size(); ++at) {
        if (code[at] == ';')
            return std::nullopt;
        if (code[at] == '(') {
            at = behindBrackets(code, at) - 1;
        } else if (code[at] == '{') {
            const bool isInitialiser = initialises && isWordCharacter(code[at - 1]);
            const auto end = behindBrackets(code, at);
            if (!isInitialiser)
                return end;
            at = end - 1;
        }
    }
    return std::nullopt;
}

bool isNameOfMethod(std::string_view code, std::size_t at) {
    const auto line = lineBefore(code, at);
    const auto first = line.find_first_not_of(' ');
    return first != none && (line[first] == '-' || line[first] == '+') &&
           line.find('(', first) != none;
}

/// Where the definition ends of which the name stands right before `behind`; nothing if it is only
/// mentioned there.
std::optional<std::size_t> endOfDefinition(std::string_view code, std::size_t at,
                                           std::size_t behind) {
    if (isNameOfMethod(code, at))
        return endOfBody(code, behind);
    const auto line = lineBefore(code, at);
    const auto before = wordBefore(code, at);
    if (before == "interface")
        return std::min(code.find("@end", behind), code.size());
    if (before == "class" || before == "struct" || line.find("class ") != none)
        return endOfBody(code, behind);
    const auto next = behindSpace(code, behind);
    if (line.starts_with("constexpr ") && next < code.size() && code[next] == '=')
        return std::min(code.find(';', next), code.size());
    if (behind < code.size() && code[behind] == '(')
        return endOfFunction(code, behind);
    return std::nullopt;
}

}

std::string codeWithoutWords(std::string_view text) {
    std::string code;
    for (std::size_t at = 0; at < text.size();) {
        if (const auto end = endOfWords(text, at)) {
            code += ' ';
            at = *end;
        } else {
            code += text[at++];
        }
    }
    return code;
}

std::vector<std::string> definitionsOf(std::string_view code, std::string_view name) {
    std::vector<std::string> definitions;
    for (const std::size_t at : places(code, name)) {
        const auto behind = at + name.size();
        if (const auto end = endOfDefinition(code, at, behind))
            definitions.emplace_back(code.substr(behind, *end - behind));
    }
    return definitions;
}

bool definesMethod(std::string_view code, std::string_view name) {
    return std::ranges::any_of(places(code, name), [&](std::size_t at) {
        return isNameOfMethod(code, at) && endOfBody(code, at + name.size());
    });
}

bool uses(std::string_view code, std::string_view name) {
    const bool isCapital = std::isupper(static_cast<unsigned char>(name.front())) != 0 ||
                           name.starts_with("kCG") || name.starts_with("kAX");
    return std::ranges::any_of(places(code, name), [&](std::size_t at) {
        const auto behind = at + name.size();
        const char next = behind < code.size() ? code[behind] : ' ';
        const bool isProperty = at > 0 && code[at - 1] == '.';
        return isCapital || isProperty || next == '(' || next == ':' || next == ']';
    });
}

}
