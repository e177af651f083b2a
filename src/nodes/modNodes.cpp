#include "nodes/modNodes.h"

#include "core/modTools.h"
#include "document/CXmlWriter.h"

namespace kavrin {

bool WriteDreibein(CXmlWriter& writer, const C3Bein& frame) {
    writer.StartElement("Dreibein");
    bool ok = WriteFrameVectors(writer, frame);
    writer.EndElement();
    return ok;
}

bool WriteFrameVectors(CXmlWriter& writer, const C3Bein& frame) {
    return WriteVektor(writer, "Pos", frame.Pos()) && WriteVektor(writer, "Dir", frame.Dir()) &&
           WriteVektor(writer, "Nor", frame.Nor()) && WriteVektor(writer, "Bin", frame.Bin());
}

void WriteKontaktZiel(CXmlWriter& writer, int32_t target) {
    writer.StartElement("KontaktZiel");
    writer.Text(std::to_string(target));
    writer.EndElement();
}

bool WriteVektor(CXmlWriter& writer, std::string_view name, const CVector& vector) {
    writer.StartElement("Vektor");
    writer.PlainAttribute("x", NumberToText(vector.X));
    writer.PlainAttribute("y", NumberToText(vector.Y));
    writer.PlainAttribute("z", NumberToText(vector.Z));
    writer.Text(name);
    writer.EndElement();
    return true;
}

} // namespace kavrin
