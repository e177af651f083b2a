#include "document/CXmlWriter.h"

#include "core/modTools.h"
#include <array>
#include <cerrno>
#include <cstdint>

#include "core/CError.h"

namespace kavrin {

namespace {
constexpr size_t kFlushSize = 1 << 20;
}

CXmlWriter::CXmlWriter(std::FILE* file) : file_(file) {
    buffer_.reserve(kFlushSize + 4096);
}

void CXmlWriter::Raw(std::string_view text) {
    CloseStartTag();
    buffer_.append(text);
    MaybeFlush();
}

void CXmlWriter::StartElement(std::string_view name) {
    CloseStartTag();
    buffer_ += '<';
    buffer_.append(name);
    stack_.append(name);
    stack_ += '\0';
    startTagOpen_ = true;
}

void CXmlWriter::Attribute(std::string_view name, std::string_view value) {
    buffer_ += ' ';
    buffer_.append(name);
    buffer_ += "=\"";
    Escaped(value, true);
    buffer_ += '"';
}

void CXmlWriter::PlainAttribute(std::string_view name, std::string_view value) {
    buffer_ += ' ';
    buffer_.append(name);
    buffer_ += "=\"";
    buffer_.append(value);
    buffer_ += '"';
}

void CXmlWriter::Text(std::string_view text) {
    CloseStartTag();
    Escaped(text, false);
}

void CXmlWriter::EndElement() {
    size_t end = stack_.size() - 1; // the '\0' after the last name
    size_t begin = stack_.rfind('\0', end - 1);
    begin = begin == std::string::npos ? 0 : begin + 1;
    if (startTagOpen_) {
        buffer_ += "/>";
        startTagOpen_ = false;
    } else {
        buffer_ += "</";
        buffer_.append(stack_, begin, end - begin);
        buffer_ += '>';
    }
    stack_.resize(begin);
    MaybeFlush();
}

void CXmlWriter::ProcessingInstruction(std::string_view name, std::string_view value) {
    CloseStartTag();
    buffer_ += ProcessingInstructionText(name, value);
}

std::string EscapedText(std::string_view text) {
    CXmlWriter writer;
    writer.Escaped(text, false);
    return writer.Result();
}

// Blanks alone beside child elements came from character references: a parser takes them,
// written plainly, for layout between the elements and drops them.
std::string EscapedTextAmongElements(std::string_view text) {
    if (text.empty() || text.find_first_not_of(" \t\r\n") != std::string_view::npos)
        return EscapedText(text);
    std::string references;
    for (char c : text)
        references += "&#" + std::to_string(static_cast<int>(c)) + ';';
    return references;
}

std::string ProcessingInstructionText(std::string_view name, std::string_view value) {
    std::string text = "<?";
    text.append(name);
    if (!value.empty()) {
        text += ' ';
        text.append(value);
    }
    return text + "?>";
}

void CXmlWriter::CloseStartTag() {
    if (startTagOpen_) {
        buffer_ += '>';
        startTagOpen_ = false;
    }
}

void CXmlWriter::Escaped(std::string_view text, bool inAttribute) {
    // Most values need no escaping: find the first special character with a table first.
    static const auto special = [] {
        std::array<uint8_t, 256> table{};
        table['&'] = table['<'] = table['>'] = 1;
        table['"'] = 2;
        return table;
    }();
    const uint8_t mask = inAttribute ? 3 : 1;
    size_t plain = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (!(special[static_cast<unsigned char>(c)] & mask))
            continue;
        buffer_.append(text.data() + plain, i - plain);
        buffer_.append(c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : "&quot;");
        plain = i + 1;
    }
    buffer_.append(text.data() + plain, text.size() - plain);
}

void CXmlWriter::MaybeFlush() {
    if (file_ && buffer_.size() >= kFlushSize)
        Flush();
}

void CXmlWriter::Flush() {
    if (!file_ || buffer_.empty())
        return;
    if (std::fwrite(buffer_.data(), 1, buffer_.size(), file_) != buffer_.size())
        throw CError::FileAccess(SystemErrorText(errno));
    buffer_.clear();
}

} // namespace kavrin
