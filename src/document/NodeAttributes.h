#pragma once

#include <string>
#include <string_view>

#include "document/INode.h"

namespace kavrin {

// The text an attribute is written with: a class's own value in file format, else the kept text.
// Empty when the node has no such attribute.
std::string AttributeText(const INode& node, std::string_view name);
bool HasAttribute(const INode& node, std::string_view name);
// Whether the simulator has the object locked against editing ("LockEd" other than 0).
bool LockedInSimulator(const INode& node);
// Sets the kept text of an attribute, appending it when the node has none of that name.
void SetAttributeText(INode& node, std::string_view name, std::string text);
// The caller's text of the error report for a value a node cannot read: which element (and in
// which track), which attribute (empty: the element's text), which value, and what is wrong
// with it. `node` is the node being read or, while it has no node yet, its parent.
std::string BadValueText(const INode& node, std::string_view element, std::string_view attribute,
                         std::string_view value, const CError& failure, std::string_view ownTrackId = {});
// The same for the failure currently being handled.
void ReportBadValue(std::string_view procedure, const INode& node, std::string_view element,
                    std::string_view attribute, std::string_view value, std::string_view ownTrackId = {});

// The hint for a number too large for the file's number format, which is written back as read.
void ReportNumberKeptAsRead(std::string_view element, std::string_view attribute, std::string_view text);
// A number the class keeps a value of, but whose text is not read whole ("630abc", "-65537" split
// into parts): the store entry remembers the value as read and the original text, and the text is
// written back for as long as the class's value is still the one read.
std::string KeptNumberEntry(std::string_view valueText, std::string_view original);
bool IsKeptNumber(std::string_view entry);
std::string_view KeptNumberOriginal(std::string_view entry);
std::string KeptNumberText(std::string_view entry, const Variant& current);
// Stores an owned number that is not read whole as such an entry, with a hint.
std::string KeepNumberAsRead(std::string_view element, std::string_view attribute, std::string_view text,
                             const Variant& value);
// The hint for an element's text that is not read whole as a number; the element is kept as read.
void ReportTextNotReadWhole(std::string_view element, std::string_view text);
// Whether the class's value of an owned number is the one its whole text names.
bool ReadWhole(std::string_view text, const Variant& value);
// Appends an attribute name whose value the class owns, unless the node has it already.
void AddOwnedAttribute(INode& node, std::string_view name);

} // namespace kavrin
