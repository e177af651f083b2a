#include "XmlTextWriter.h"

#include "NumberFormat.h"

namespace kavrin::gen {

void XmlTextWriter::declaration() {
    sink_.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
}

void XmlTextWriter::open(std::string_view name) {
    endStartTag();
    sink_.put('<');
    sink_.write(name);
    openElements_.push_back(name);
    startTagOpen_ = true;
}

void XmlTextWriter::attr(std::string_view name, std::string_view value) {
    sink_.put(' ');
    sink_.write(name);
    sink_.write("=\"");
    writeEscaped(value);
    sink_.put('"');
}

void XmlTextWriter::rawAttr(std::string_view name, std::string_view value) {
    sink_.put(' ');
    sink_.write(name);
    sink_.write("=\"");
    sink_.write(value);
    sink_.put('"');
}

void XmlTextWriter::attr(std::string_view name, long long value) {
    sink_.put(' ');
    sink_.write(name);
    sink_.write("=\"");
    char* out = sink_.reserve(24);
    int n = 0;
    unsigned long long magnitude = static_cast<unsigned long long>(value);
    if (value < 0) {
        out[n++] = '-';
        magnitude = 0ull - magnitude;
    }
    char digits[24];
    int count = 0;
    do {
        digits[count++] = static_cast<char>('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);
    while (count > 0) {
        out[n++] = digits[--count];
    }
    sink_.commit(static_cast<std::size_t>(n));
    sink_.put('"');
}

void XmlTextWriter::num(std::string_view name, double value) {
    sink_.put(' ');
    sink_.write(name);
    sink_.write("=\"");
    writeNumber(value);
    sink_.put('"');
}

void XmlTextWriter::text(std::string_view value) {
    endStartTag();
    writeEscaped(value);
}

void XmlTextWriter::close() {
    const std::string_view name = openElements_.back();
    openElements_.pop_back();
    if (startTagOpen_) {
        sink_.write("/>");
        startTagOpen_ = false;
        return;
    }
    sink_.write("</");
    sink_.write(name);
    sink_.put('>');
}

void XmlTextWriter::finish() {
    sink_.put('\n');
}

void XmlTextWriter::vektor(double x, double y, double z, std::string_view name) {
    open("Vektor");
    num("x", x);
    num("y", y);
    num("z", z);
    text(name);
    close();
}

void XmlTextWriter::position(double x, double y, double z) {
    open("Position");
    num("x", x);
    num("y", y);
    num("z", z);
    close();
}

void XmlTextWriter::vector(double dx, double dy, double dz) {
    open("Vector");
    num("dx", dx);
    num("dy", dy);
    num("dz", dz);
    close();
}

void XmlTextWriter::dreibein(const Frame& frame) {
    open("Dreibein");
    vektor(frame.pos.x, frame.pos.y, frame.pos.z, "Pos");
    vektor(frame.dir.x, frame.dir.y, frame.dir.z, "Dir");
    vektor(frame.nor.x, frame.nor.y, frame.nor.z, "Nor");
    vektor(frame.bin.x, frame.bin.y, frame.bin.z, "Bin");
    close();
}

void XmlTextWriter::endStartTag() {
    if (startTagOpen_) {
        sink_.put('>');
        startTagOpen_ = false;
    }
}

void XmlTextWriter::writeNumber(double value) {
    char* out = sink_.reserve(kMaxNumberLength);
    sink_.commit(static_cast<std::size_t>(formatLayoutNumber(value, out)));
}

void XmlTextWriter::writeEscaped(std::string_view value) {
    std::size_t start = 0;
    for (std::size_t i = 0; i < value.size(); ++i) {
        std::string_view entity;
        switch (value[i]) {
        case '<':
            entity = "&lt;";
            break;
        case '>':
            entity = "&gt;";
            break;
        case '"':
            entity = "&quot;";
            break;
        case '&':
            entity = "&amp;";
            break;
        default:
            continue;
        }
        sink_.write(value.substr(start, i - start));
        sink_.write(entity);
        start = i + 1;
    }
    sink_.write(value.substr(start));
}

} // namespace kavrin::gen
