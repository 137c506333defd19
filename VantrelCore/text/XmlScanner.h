// Reads the tags and texts of an XML document one after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel {

// For small files that other programs write. Comments, processing instructions and the document type are
// skipped, entities of the document's own are left as they are written. The document outlives the scanner.
class XmlScanner {
public:
    struct Token {
        // An empty element is a start that an end follows.
        enum class Kind : std::uint8_t { start, end, text };

        Kind kind = Kind::text;
        // The element's name, or the text.
        std::string text{};
        std::map<std::string, std::string> attributes{};
    };

    explicit XmlScanner(std::string_view document) : m_rest(document) {}

    // None at the end of the document, or where it stops being well-formed.
    [[nodiscard]] std::optional<Token> next();

private:
    [[nodiscard]] std::optional<Token> tag();
    [[nodiscard]] bool skipMarkup();
    void end() { m_rest = {}; }

    std::string_view m_rest;
    // The element that was empty and has not ended yet.
    std::optional<std::string> m_open;
};

} // namespace vantrel
