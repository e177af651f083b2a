#pragma once

#include <cstdint>
#include <string>

#include "nodes/CRect.h"

namespace kavrin {

class CPaintTarget;

// Every node shown on the plan takes part through this interface besides INode: it draws
// itself (culling itself first), answers the selection commands and remembers what the last
// paint did with it.
class IPaint {
public:
    // The kinds a selection counts; everything else on the plan is Other.
    enum class Kind : uint8_t { Other, Gleis, Immobilie, Good };

    virtual ~IPaint() = default;

    // Draws the node if it passes the height filter and lies in the visible area; true when drawn.
    virtual bool Paint(CPaintTarget& target) = 0;
    virtual bool Selected() const = 0;
    virtual void SetSelected(bool selected) = 0;
    // Whether the node lies inside a world rectangle (rubber-band selection).
    virtual bool inRect(const CRect& world) const = 0;
    // Shifts the node by world offsets (cm), with whatever moves along with it.
    virtual void Move(double dx, double dy, double dz) = 0;
    // Turns the node by angle degrees about (cx, cy).
    virtual void Rotate(double angle, double cx, double cy) = 0;
    virtual bool isDeleteable() const = 0;
    // Unique within the layout: the hexadecimal text of a number that identifies the node.
    virtual std::string Key() const = 0;
    // The number behind Key.
    virtual uint32_t KeyNumber() const = 0;
    virtual Kind PaintKind() const { return Kind::Other; }
    // Whether the node's kind is currently shown.
    virtual bool Active() const = 0;
    virtual void SetActive(bool active) = 0;
    // Whether the last paint drew the node.
    virtual bool OnPlan() const = 0;
    virtual void SetOnPlan(bool onPlan) = 0;
    // Whether the node passed the height filter at the last paint.
    virtual bool InHeightRange() const = 0;
    virtual void SetInHeightRange(bool inRange) = 0;
    // Whether an operation on what the user sees should consider the node: mode 0 what is
    // shown, 1 everything, 2 what is shown or would be when scrolled into view.
    virtual bool Consider(int mode) const = 0;
};

} // namespace kavrin
