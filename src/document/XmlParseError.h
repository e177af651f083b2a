#pragma once

#include <string>
#include <string_view>

namespace pugi {
struct xml_parse_result;
}

namespace kavrin {

// Options every layout text is parsed with: literal line feeds in attribute values survive (no
// whitespace conversion), so do carriage returns (no end-of-line normalisation); comments and
// CDATA are parsed so that they can be refused with a hint instead of disappearing silently.
extern const unsigned kLayoutParseOptions;

// "Der Fehler entsteht in der Nähe des ... Zeichen": position, code and reason of a parse error
// in `text`, the position counted in characters (an umlaut is one character, not two bytes).
std::string XmlParseErrorText(const pugi::xml_parse_result& result, std::string_view text);
// The parser's reason in German.
std::string XmlParseReason(int status);
// Shows heading and parse error in one error box.
void ReportXmlParseError(const pugi::xml_parse_result& result, std::string_view text,
                         const std::string& heading);
// The number of UTF-8 characters that the first `bytes` bytes of `text` hold.
size_t CharacterCount(std::string_view text, size_t bytes);

} // namespace kavrin
