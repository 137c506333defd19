#include "VantrelCore/text/XmlScanner.h"

#include <array>
#include <charconv>
#include <utility>

namespace vantrel {

namespace {

constexpr std::string_view space = " \t\r\n";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(space);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(space) - first + 1);
}

void appendUtf8(std::string& text, std::uint32_t code) {
    const auto byte = [&text](std::uint32_t value) { text.push_back(static_cast<char>(value)); };
    const auto more = [&](unsigned shift) { byte(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0U | (code >> 6U));
        more(0);
    } else if (code < 0x10000) {
        byte(0xE0U | (code >> 12U));
        more(6);
        more(0);
    } else {
        byte(0xF0U | (code >> 18U));
        more(12);
        more(6);
        more(0);
    }
}

// False for what is no character reference.
bool appendEntity(std::string& text, std::string_view name) {
    constexpr std::array<std::pair<std::string_view, char>, 5> named{
        {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};
    for (const auto& [entity, letter] : named) {
        if (name == entity) {
            text.push_back(letter);
            return true;
        }
    }
    if (!name.starts_with('#')) {
        return false;
    }
    const bool isHex = name.starts_with("#x");
    const std::string_view digits = name.substr(isHex ? 2 : 1);
    std::uint32_t code = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), code, isHex ? 16 : 10);
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (error != std::errc() || end != digits.data() + digits.size() || code == 0 || code > 0x10FFFF ||
        isSurrogate) {
        return false;
    }
    appendUtf8(text, code);
    return true;
}

std::string decoded(std::string_view raw) {
    constexpr std::size_t longestEntity = 10;
    std::string text;
    while (!raw.empty()) {
        const auto start = raw.find('&');
        text += raw.substr(0, start);
        if (start == std::string_view::npos) {
            break;
        }
        raw.remove_prefix(start);
        const auto end = raw.substr(0, longestEntity).find(';');
        if (end != std::string_view::npos && appendEntity(text, raw.substr(1, end - 1))) {
            raw.remove_prefix(end + 1);
        } else {
            text.push_back('&');
            raw.remove_prefix(1);
        }
    }
    return text;
}

// The attributes of a start tag, after its name; none if they are not well-formed.
std::optional<std::map<std::string, std::string>> attributesOf(std::string_view rest) {
    std::map<std::string, std::string> found;
    for (rest = trimmed(rest); !rest.empty(); rest = trimmed(rest)) {
        const auto equals = rest.find('=');
        if (equals == std::string_view::npos) {
            return std::nullopt;
        }
        const std::string_view name = trimmed(rest.substr(0, equals));
        rest = trimmed(rest.substr(equals + 1));
        if (name.empty() || rest.empty() || (rest.front() != '"' && rest.front() != '\'')) {
            return std::nullopt;
        }
        const auto end = rest.find(rest.front(), 1);
        if (end == std::string_view::npos) {
            return std::nullopt;
        }
        found.emplace(name, decoded(rest.substr(1, end - 1)));
        rest.remove_prefix(end + 1);
    }
    return found;
}

// Where a tag that begins with '<' ends: at the first '>' outside of quotes.
std::size_t endOfTag(std::string_view text) {
    char quote = '\0';
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char letter = text[i];
        if (quote != '\0') {
            quote = letter == quote ? '\0' : quote;
        } else if (letter == '"' || letter == '\'') {
            quote = letter;
        } else if (letter == '>') {
            return i;
        }
    }
    return std::string_view::npos;
}

} // namespace

// True if it has skipped something that is neither tag nor text.
bool XmlScanner::skipMarkup() {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 3> skipped{
        {{"<!--", "-->"}, {"<?", "?>"}, {"<!DOCTYPE", ">"}}};
    for (const auto& [begin, end] : skipped) {
        if (m_rest.starts_with(begin)) {
            const auto at = m_rest.find(end, begin.size());
            m_rest = at == std::string_view::npos ? std::string_view() : m_rest.substr(at + end.size());
            return true;
        }
    }
    return false;
}

std::optional<XmlScanner::Token> XmlScanner::next() {
    using Kind = Token::Kind;
    if (m_open) {
        return Token{.kind = Kind::end, .text = *std::exchange(m_open, std::nullopt)};
    }
    while (!m_rest.empty()) {
        if (skipMarkup()) {
            continue;
        }
        constexpr std::string_view data = "<![CDATA[";
        if (m_rest.starts_with(data)) {
            const auto at = m_rest.find("]]>");
            Token token{.kind = Kind::text,
                        .text = std::string(m_rest.substr(data.size(), at - data.size()))};
            if (at == std::string_view::npos) {
                end();
                return std::nullopt;
            }
            m_rest.remove_prefix(at + 3);
            return token;
        }
        if (m_rest.front() == '<') {
            return tag();
        }
        const auto at = m_rest.find('<');
        Token token{.kind = Kind::text, .text = decoded(m_rest.substr(0, at))};
        m_rest = at == std::string_view::npos ? std::string_view() : m_rest.substr(at);
        return token;
    }
    return std::nullopt;
}

std::optional<XmlScanner::Token> XmlScanner::tag() {
    const auto close = endOfTag(m_rest);
    if (close == std::string_view::npos) {
        end();
        return std::nullopt;
    }
    std::string_view inside = m_rest.substr(1, close - 1);
    m_rest.remove_prefix(close + 1);
    const bool isEnd = inside.starts_with('/');
    const bool isEmpty = !isEnd && inside.ends_with('/');
    inside = inside.substr(isEnd ? 1 : 0, inside.size() - (isEnd || isEmpty ? 1 : 0));
    const std::string_view name = inside.substr(0, inside.find_first_of(space));
    const auto attributes = attributesOf(inside.substr(name.size()));
    if (name.empty() || !attributes) {
        end();
        return std::nullopt;
    }
    if (isEmpty) {
        m_open = name;
    }
    return Token{.kind = isEnd ? Token::Kind::end : Token::Kind::start,
                 .text = std::string(name),
                 .attributes = *attributes};
}

} // namespace vantrel
