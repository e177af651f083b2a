#pragma once

#include "OutputSink.h"
#include "Vec3.h"

#include <string_view>
#include <vector>

namespace kavrin::gen {

/// Streams XML the way the simulator writes it: the declaration and a line feed, then the whole
/// document on one line; empty elements as "<X a=\"1\"/>"; only &lt; &gt; &quot; &amp; escaped, so
/// literal line feeds in attribute values stay literal.
/// Element names are kept by reference until the element is closed: pass literals.
class XmlTextWriter {
public:
    explicit XmlTextWriter(OutputSink& sink) : sink_(sink) {}

    void declaration();
    void open(std::string_view name);
    void attr(std::string_view name, std::string_view value);
    void attr(std::string_view name, long long value);
    /// A floating point attribute in the layout number format.
    void num(std::string_view name, double value);
    /// A text attribute that is known to need no escaping.
    void rawAttr(std::string_view name, std::string_view value);
    void text(std::string_view value);
    void close();
    /// The final line feed after the document element.
    void finish();

    /// Shorthands for the element shapes that make up most of a layout.
    void vektor(double x, double y, double z, std::string_view name);
    void position(double x, double y, double z);
    void vector(double dx, double dy, double dz);
    /// A "Dreibein" with its four vectors Pos, Dir, Nor, Bin.
    void dreibein(const Frame& frame);

private:
    void endStartTag();
    void writeNumber(double value);
    void writeEscaped(std::string_view value);

    OutputSink& sink_;
    std::vector<std::string_view> openElements_;
    bool startTagOpen_ = false;
};

} // namespace kavrin::gen
