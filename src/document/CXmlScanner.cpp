#include "document/CXmlScanner.h"

#include <cstring>

namespace kavrin {

size_t CXmlScanner::Find(char c, size_t from) const {
    if (from >= size_)
        return npos;
    const void* hit = std::memchr(data_ + from, c, size_ - from);
    return hit ? static_cast<size_t>(static_cast<const char*>(hit) - data_) : npos;
}

size_t CXmlScanner::Find(std::string_view text, size_t from) const {
    std::string_view all(data_, size_);
    return from >= size_ ? npos : all.find(text, from);
}

// The first quote of either kind in [begin, end), or npos; a '<' there makes the tag invalid,
// which the parser then reports.
size_t CXmlScanner::FirstQuote(size_t begin, size_t end) const {
    for (size_t i = begin; i < end; ++i)
        if (data_[i] == '"' || data_[i] == '\'')
            return i;
    return npos;
}

bool CXmlScanner::OnlySpace(size_t begin, size_t end) const {
    for (size_t i = begin; i < end; ++i)
        if (!IsSpace(data_[i]))
            return false;
    return true;
}

CXmlScanner::Token CXmlScanner::Next(size_t pos) const {
    if (pos >= size_)
        return {};
    if (data_[pos] != '<') {
        size_t end = Find('<', pos);
        return {Kind::Text, pos, end == npos ? size_ : end, {}};
    }
    return Tag(pos);
}

CXmlScanner::Token CXmlScanner::Delimited(size_t pos, Kind kind, std::string_view close) const {
    size_t end = Find(close, pos + 2);
    if (end == npos)
        return {Kind::Invalid, pos, size_, {}};
    return {kind, pos, end + close.size(), {}};
}

// "<!DOCTYPE name ... [internal subset]>": quotes, brackets and comments inside are skipped.
CXmlScanner::Token CXmlScanner::DoctypeAt(size_t pos) const {
    int brackets = 0;
    for (size_t i = pos + 9; i < size_; ++i) {
        char c = data_[i];
        if (c == '"' || c == '\'') {
            i = Find(c, i + 1);
            if (i == npos)
                break;
        } else if (c == '<' && std::string_view(data_ + i, size_ - i).substr(0, 4) == "<!--") {
            i = Find("-->", i + 4);
            if (i == npos)
                break;
            i += 2;
        } else if (c == '[') {
            ++brackets;
        } else if (c == ']') {
            --brackets;
        } else if (c == '>' && brackets <= 0) {
            return {Kind::Doctype, pos, i + 1, {}};
        }
    }
    return {Kind::Invalid, pos, size_, {}};
}

CXmlScanner::Token CXmlScanner::Tag(size_t pos) const {
    std::string_view rest(data_ + pos, size_ - pos);
    if (rest.size() < 2)
        return {Kind::Invalid, pos, size_, {}};
    char second = rest[1];
    if (second == '?')
        return Delimited(pos, Kind::Instruction, "?>");
    if (second == '!') {
        if (rest.substr(0, 4) == "<!--")
            return Delimited(pos, Kind::Comment, "-->");
        if (rest.substr(0, 9) == "<![CDATA[")
            return Delimited(pos, Kind::CData, "]]>");
        if (rest.substr(0, 9) == "<!DOCTYPE")
            return DoctypeAt(pos);
        return {Kind::Invalid, pos, size_, {}};
    }
    bool closing = second == '/';
    size_t nameBegin = pos + (closing ? 2 : 1);
    size_t i = nameBegin;
    while (i < size_ && !IsSpace(data_[i]) && data_[i] != '/' && data_[i] != '>' && data_[i] != '<')
        ++i;
    if (i == nameBegin)
        return {Kind::Invalid, pos, size_, {}};
    std::string_view name(data_ + nameBegin, i - nameBegin);
    if (closing) {
        size_t end = Find('>', i);
        if (end == npos)
            return {Kind::Invalid, pos, size_, {}};
        return {Kind::EndTag, pos, end + 1, name};
    }
    // Attribute values may hold '>' and '/': only quotes decide where the tag ends. From one
    // '>' back to the last quote before it, the next quoted value is skipped whole.
    size_t close = 0;
    while (i < size_) {
        if (close < i)
            close = Find('>', i);
        if (close == npos)
            break;
        size_t quote = FirstQuote(i, close);
        if (quote == npos) {
            Kind kind = data_[close - 1] == '/' ? Kind::EmptyTag : Kind::StartTag;
            return {kind, pos, close + 1, name};
        }
        size_t end = Find(data_[quote], quote + 1);
        if (end == npos)
            break;
        i = end + 1;
    }
    return {Kind::Invalid, pos, size_, {}};
}

size_t CXmlScanner::SkipElement(const Token& start) const {
    if (start.kind == Kind::EmptyTag)
        return start.end;
    if (start.kind != Kind::StartTag)
        return npos;
    int depth = 1;
    size_t pos = start.end;
    while (true) {
        size_t lt = Find('<', pos);
        if (lt == npos)
            return npos;
        Token token = Tag(lt);
        switch (token.kind) {
        case Kind::Invalid:
            return npos;
        case Kind::StartTag:
            ++depth;
            break;
        case Kind::EndTag:
            if (--depth == 0)
                return token.end;
            break;
        default:
            break;
        }
        pos = token.end;
    }
}

} // namespace kavrin
