#include "app/CSystemReg.h"

#include <cctype>
#include <fstream>
#include <sstream>

#include "core/modPaths.h"

namespace kavrin {

namespace {

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

std::string MapKey(std::string_view key, std::string_view name) {
    return Lower(key) + '\n' + Lower(name);
}

void AppendUtf8(std::string& out, uint32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

// Reads a quoted text with Wine's escapes (\\ \" \n \r \t \0 \xHHHH) starting after the opening
// quote; `pos` ends after the closing quote. No closing quote: nothing.
std::optional<std::string> ReadQuoted(std::string_view line, size_t& pos) {
    std::string out;
    while (pos < line.size()) {
        char c = line[pos++];
        if (c == '"')
            return out;
        if (c != '\\') {
            out += c;
            continue;
        }
        if (pos >= line.size())
            return std::nullopt;
        char e = line[pos++];
        switch (e) {
        case 'n':
            out += '\n';
            break;
        case 'r':
            out += '\r';
            break;
        case 't':
            out += '\t';
            break;
        case '0':
            out += '\0';
            break;
        case 'x': {
            uint32_t code = 0;
            int digits = 0;
            while (digits < 4 && pos < line.size() && HexDigit(line[pos]) >= 0) {
                code = code * 16 + static_cast<uint32_t>(HexDigit(line[pos]));
                ++pos;
                ++digits;
            }
            AppendUtf8(out, code);
            break;
        }
        default:
            out += e;
            break;
        }
    }
    return std::nullopt;
}

// The key of a section header "[Software\\Vendor\\Product] 1700000000": the escaped
// backslashes are single ones in the key path.
std::optional<std::string> SectionKey(std::string_view line) {
    size_t close = line.rfind(']');
    if (close == std::string_view::npos || close < 1)
        return std::nullopt;
    std::string key;
    std::string_view inner = line.substr(1, close - 1);
    for (size_t i = 0; i < inner.size(); ++i) {
        if (inner[i] == '\\' && i + 1 < inner.size() && inner[i + 1] == '\\')
            ++i;
        key += inner[i];
    }
    return key;
}

bool ParseDword(std::string_view text, uint32_t& value) {
    if (text.empty() || text.size() > 8)
        return false;
    value = 0;
    for (char c : text) {
        int digit = HexDigit(c);
        if (digit < 0)
            return false;
        value = value * 16 + static_cast<uint32_t>(digit);
    }
    return true;
}

} // namespace

bool CSystemReg::LoadFile(const std::string& path) {
    values_.clear();
    std::ifstream file(PathFromUtf8(path), std::ios::binary);
    if (!file)
        return false;
    std::ostringstream content;
    content << file.rdbuf();
    Parse(content.str());
    return true;
}

void CSystemReg::Parse(std::string_view text) {
    values_.clear();
    std::string key;
    bool inKey = false;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        std::string_view line =
            text.substr(start, end == std::string_view::npos ? text.size() - start : end - start);
        start = end == std::string_view::npos ? text.size() : end + 1;
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (line.empty() || line.front() == ';' || line.front() == '#')
            continue;
        if (line.front() == '[') {
            auto section = SectionKey(line);
            inKey = section.has_value();
            if (inKey)
                key = *section;
            continue;
        }
        if (inKey && line.front() == '"')
            ParseValueLine(key, line);
    }
}

void CSystemReg::ParseValueLine(const std::string& key, std::string_view line) {
    size_t pos = 1;
    auto name = ReadQuoted(line, pos);
    if (!name || pos >= line.size() || line[pos] != '=')
        return;
    std::string_view data = line.substr(pos + 1);
    Value value;
    if (!data.empty() && data.front() == '"') {
        size_t dataPos = 1;
        auto text = ReadQuoted(data, dataPos);
        if (!text)
            return;
        value.isString = true;
        value.text = std::move(*text);
    } else if (data.rfind("dword:", 0) == 0) {
        if (!ParseDword(data.substr(6), value.number))
            return;
        value.isDword = true;
    }
    values_[MapKey(key, *name)] = std::move(value);
}

const CSystemReg::Value* CSystemReg::Find(std::string_view key, std::string_view name) const {
    auto it = values_.find(MapKey(key, name));
    return it == values_.end() ? nullptr : &it->second;
}

std::optional<std::string> CSystemReg::String(std::string_view key, std::string_view name) const {
    const Value* value = Find(key, name);
    if (!value || !value->isString)
        return std::nullopt;
    // The registry API cuts a string at its first NUL.
    return value->text.substr(0, value->text.find('\0'));
}

std::optional<uint32_t> CSystemReg::Dword(std::string_view key, std::string_view name) const {
    const Value* value = Find(key, name);
    if (!value || !value->isDword)
        return std::nullopt;
    return value->number;
}

} // namespace kavrin
