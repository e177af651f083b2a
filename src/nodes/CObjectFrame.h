#pragma once

#include <array>
#include <memory>

#include "document/INode.h"
#include "nodes/C3Bein.h"
#include "nodes/CPlacement.h"

namespace kavrin {

class CNodeDreibein;
class CXmlWriter;
class INode;

// The placement frame of a building or goods item, taken from its "Dreibein" child. The frame
// shares the child's vectors (grab3Bein), so moving it edits what is written back. A plain
// child (four vectors only) is released and written anew; one that carries anything more is
// kept whole, so nothing of it is lost.
class CObjectFrame {
public:
    CObjectFrame();
    ~CObjectFrame();
    CObjectFrame(const CObjectFrame&) = delete;
    CObjectFrame& operator=(const CObjectFrame&) = delete;

    // A parsed child this frame takes: the first "Dreibein". A second one is kept by the owner
    // as an ordinary child.
    bool CanTake(const INode& child) const;
    // Takes it: its vectors become the frame's; the element is kept whole unless it is plain.
    void Take(std::unique_ptr<INode>& child);
    // Takes the child when it can; the owner notes the slot first through `note`.
    template <typename Note> bool Offer(std::unique_ptr<INode>& child, Note note) {
        if (!CanTake(*child))
            return false;
        note();
        Take(child);
        return true;
    }
    // The commonest case, read straight from the file without nodes: a first "Dreibein" of four
    // plain vectors in their usual order, with numbers the file's format can carry. The owner
    // notes the slot first through `note`.
    template <typename Note> bool OfferElement(const XmlElement& element, Note note) {
        std::array<double, 12> numbers;
        if (present_ || !IsPlainElement(element) || !ReadNumbers(element, numbers))
            return false;
        note();
        TakeNumbers(numbers);
        return true;
    }
    // Writes the frame as read; an object read without one is written without one.
    bool Write(CXmlWriter& writer) const;
    // Value copy of another object's frame (own vectors); owner becomes the kept child's parent.
    void CopyFrom(const CObjectFrame& source, INode* owner);

    C3Bein& DreiBein() { return frame_; }
    const C3Bein& DreiBein() const { return frame_; }
    bool Present() const { return present_; }
    void MovePos(double dx, double dy, double dz = 0) { frame_.Move(dx, dy, dz); }
    void Rotate(double angle, double cx, double cy) { frame_.Rotate(angle, cx, cy); }
    // The frame's vectors (a kept element's vectors are the same objects, so they follow).
    CPlacement Placement(bool turning) const;
    void SetPlacement(const CPlacement& placement);

private:
    static bool IsPlainElement(const XmlElement& element);
    // x, y, z of the four vectors of a plain element; false for a number the format cannot carry.
    static bool ReadNumbers(const XmlElement& element, std::array<double, 12>& numbers);
    void TakeNumbers(const std::array<double, 12>& numbers);

    C3Bein frame_;
    std::unique_ptr<CNodeDreibein> kept_;
    bool present_ = false;
};

} // namespace kavrin
