#pragma once

#include <string>

namespace pugi {
struct xml_parse_result;
}

namespace kavrin {

// "Der Fehler entsteht in der Nähe des ... Zeichen": position, code and reason of a parse error.
std::string XmlParseErrorText(const pugi::xml_parse_result& result);
// The parser's reason in German.
std::string XmlParseReason(int status);
// Shows heading and parse error in one error box.
void ReportXmlParseError(const pugi::xml_parse_result& result, const std::string& heading);

} // namespace kavrin
