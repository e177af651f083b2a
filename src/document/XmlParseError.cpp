#include "document/XmlParseError.h"

#include <algorithm>
#include <cstdio>
#include <pugixml.hpp>

#include "core/modTools.h"

namespace kavrin {

const unsigned kLayoutParseOptions = (pugi::parse_default & ~pugi::parse_wconv_attribute & ~pugi::parse_eol) |
                                     pugi::parse_comments | pugi::parse_pi | pugi::parse_declaration |
                                     pugi::parse_doctype | pugi::parse_ws_pcdata_single;

size_t CharacterCount(std::string_view text, size_t bytes) {
    bytes = std::min(bytes, text.size());
    size_t characters = 0;
    for (size_t i = 0; i < bytes; ++i)
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80)
            ++characters;
    return characters;
}

std::string XmlParseReason(int status) {
    switch (status) {
    case pugi::status_ok:
        return "Kein Fehler";
    case pugi::status_file_not_found:
        return "Die Datei wurde nicht gefunden.";
    case pugi::status_io_error:
        return "Die Datei kann nicht gelesen werden.";
    case pugi::status_out_of_memory:
        return "Nicht genügend Speicher.";
    case pugi::status_internal_error:
        return "Interner Fehler des Parsers.";
    case pugi::status_unrecognized_tag:
        return "Unbekannte Markierung (kein gültiges Element).";
    case pugi::status_bad_pi:
        return "Fehlerhafte Verarbeitungsanweisung oder XML-Deklaration.";
    case pugi::status_bad_comment:
        return "Fehlerhafter Kommentar.";
    case pugi::status_bad_cdata:
        return "Fehlerhafter CDATA-Abschnitt.";
    case pugi::status_bad_doctype:
        return "Fehlerhafte Dokumenttyp-Deklaration.";
    case pugi::status_bad_pcdata:
        return "Fehlerhafter Text zwischen den Elementen.";
    case pugi::status_bad_start_element:
        return "Fehlerhafter Anfang eines Elements.";
    case pugi::status_bad_attribute:
        return "Fehlerhaftes Attribut.";
    case pugi::status_bad_end_element:
        return "Fehlerhaftes Ende eines Elements.";
    case pugi::status_end_element_mismatch:
        return "Das Ende eines Elements passt nicht zu seinem Anfang, oder die Datei endet vorzeitig.";
    case pugi::status_append_invalid_root:
        return "Ungültiger Inhalt auf oberster Ebene.";
    case pugi::status_no_document_element:
        return "Die Datei enthält kein Dokument-Element (leer?).";
    default:
        return "Unbekannter Fehler.";
    }
}

std::string XmlParseErrorText(const pugi::xml_parse_result& result, std::string_view text) {
    char hex[16];
    std::snprintf(hex, sizeof hex, "%X", static_cast<unsigned>(result.status));
    return FormatMessage(
        "Der Fehler entsteht in der Nähe des %1. Zeichen in der Datei.%mFehlercode: %2  (0x%3)%n"
        "Fehlertext: %4",
        static_cast<long long>(CharacterCount(text, static_cast<size_t>(result.offset))) + 1,
        static_cast<int>(result.status), hex, XmlParseReason(result.status));
}

void ReportXmlParseError(const pugi::xml_parse_result& result, std::string_view text,
                         const std::string& heading) {
    ErrorBox(FormatMessage("%1%m%2", heading, XmlParseErrorText(result, text)));
}

} // namespace kavrin
