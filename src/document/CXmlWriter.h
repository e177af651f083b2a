#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace kavrin {

// Streams XML with the simulator's conventions: everything on one line, "<X/>" for empty
// elements, literal line feeds in attribute values, &lt; &gt; &amp; (and &quot; in attributes).
class CXmlWriter {
public:
    // Writes into memory; Result() gives the text.
    CXmlWriter() = default;
    // Writes into an open file, flushing its buffer whenever it grows large.
    explicit CXmlWriter(std::FILE* file);

    void Raw(std::string_view text);
    void StartElement(std::string_view name);
    void Attribute(std::string_view name, std::string_view value);
    // An attribute whose value needs no escaping (a number).
    void PlainAttribute(std::string_view name, std::string_view value);
    void Text(std::string_view text);
    void EndElement();
    void ProcessingInstruction(std::string_view name, std::string_view value);
    // Ends the open start tag, so that an element without content is closed as "<X></X>".
    void EndStartTag() { CloseStartTag(); }

    // Writes out what is buffered; throws a file-access error when the file refuses it.
    void Flush();
    const std::string& Result() const { return buffer_; }
    int OpenElements() const { return static_cast<int>(stack_.size()); }

private:
    friend std::string EscapedText(std::string_view text);
    // As EscapedText, for a text that stands beside child elements.
    std::string EscapedTextAmongElements(std::string_view text);
    void CloseStartTag();
    void Escaped(std::string_view text, bool inAttribute);
    void MaybeFlush();

    std::FILE* file_ = nullptr;
    std::string buffer_;
    std::string stack_; // names of open elements, separated by '\0'
    bool startTagOpen_ = false;
};

// A text as the writer writes it.
std::string EscapedText(std::string_view text);
// As EscapedText, for a text that stands beside child elements.
std::string EscapedTextAmongElements(std::string_view text);

// "<?name value?>" (no blank when there is no value).
std::string ProcessingInstructionText(std::string_view name, std::string_view value);

} // namespace kavrin
