#pragma once

#include <string>

namespace kavrin {

// A processing instruction met while loading; written back before the document element.
class CXmlProcInstr {
public:
    CXmlProcInstr(std::string name, std::string value) : name_(std::move(name)), value_(std::move(value)) {}

    const std::string& NodeName() const { return name_; }
    void SetNodeName(std::string name) { name_ = std::move(name); }
    const std::string& NodeValue() const { return value_; }
    void SetNodeValue(std::string value) { value_ = std::move(value); }

private:
    std::string name_;
    std::string value_;
};

} // namespace kavrin
