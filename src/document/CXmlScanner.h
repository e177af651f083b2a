#pragma once

#include <cstddef>
#include <string_view>

namespace kavrin {

// Finds the boundaries of XML markup in a text without building anything, so that a large file
// can be handed to the parser piece by piece. It only tells where things begin and end; whether
// a piece is well-formed is left to the parser that reads it afterwards.
class CXmlScanner {
public:
    enum class Kind { StartTag, EmptyTag, EndTag, Comment, Instruction, CData, Doctype, Text, Invalid };

    struct Token {
        Kind kind = Kind::Invalid;
        size_t begin = 0;      // first character ('<' for markup)
        size_t end = 0;        // one past the last character
        std::string_view name; // element name of a start, empty or end tag
    };

    CXmlScanner(const char* data, size_t size) : data_(data), size_(size) {}

    // The markup or text that begins at `pos` (pos < Size()). Invalid when it does not end or
    // cannot be markup.
    Token Next(size_t pos) const;
    // Skips an element whose start tag is `start` with everything it holds; returns the
    // position after its end tag, or npos when the text ends first.
    size_t SkipElement(const Token& start) const;

    const char* Data() const { return data_; }
    size_t Size() const { return size_; }
    static bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
    bool OnlySpace(size_t begin, size_t end) const;

    static constexpr size_t npos = static_cast<size_t>(-1);

private:
    Token Tag(size_t pos) const;
    Token Delimited(size_t pos, Kind kind, std::string_view close) const;
    Token DoctypeAt(size_t pos) const;
    size_t Find(char c, size_t from) const;
    size_t FirstQuote(size_t begin, size_t end) const;
    size_t Find(std::string_view text, size_t from) const;

    const char* data_;
    size_t size_;
};

} // namespace kavrin
