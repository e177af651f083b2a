#include "edit/CAttributeChange.h"

#include "core/CDictionary.h"
#include "core/CStringPack.h"
#include "document/INode.h"
#include "document/NodeAttributes.h"

namespace kavrin {

CAttributeChange::CAttributeChange(INode& node, std::string_view name, std::string text)
    : node_(node), name_(name), after_(std::move(text)) {
    if (HasAttribute(node, name))
        before_ = AttributeText(node, name);
}

std::unique_ptr<CAttributeChange> CAttributeChange::Set(INode& node, std::string_view name,
                                                        std::string text) {
    std::unique_ptr<CAttributeChange> change(new CAttributeChange(node, name, std::move(text)));
    change->Redo();
    return change;
}

void CAttributeChange::Apply(const std::optional<std::string>& text) {
    int16_t key = AttributeNames().PutString(name_);
    if (!text) {
        node_.Attributes().Delete(key);
        return;
    }
    std::string kept(node_.CheckAttribute(name_, *text));
    // Undoing back to a number that was not read whole gives its text back as well.
    if (kept == kOwnedValue) {
        Variant value = node_.XmlAttr(name_);
        if (!ReadWhole(*text, value))
            kept = KeptNumberEntry(NumberToText(value), *text);
    }
    if (!node_.Attributes().Set(key, kept))
        node_.Attributes().Add(key, kept);
}

} // namespace kavrin
