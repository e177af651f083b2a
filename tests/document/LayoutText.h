#pragma once

#include <string>

namespace kavrin::test {

// A small layout with every expected chapter; `inner` goes right after the Version element.
inline std::string LayoutText(const std::string& inner = "", const std::string& terrain = "") {
    std::string schandlaft = terrain.empty()
                                 ? "<Schandlaft extX=\"75\" extY=\"75\" posX=\"-25000\" posY=\"-25000\" "
                                   "dichte=\"1.5E-03\" HoehenFile=\"\\aH.bmp\"/>"
                                 : terrain;
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<sutrackp><Version EEP=\"15\"/>" + inner +
           "<Gleissystem GleissystemID=\"1\"/><Fuhrpark FuhrparkID=\"1\"/>"
           "<Gebaeudesammlung GebaudesammlungID=\"1\"/><Goods count=\"0\"/><Kammerasammlung/><Settings/>"
           "<Options/><Weather/><TimeTable/>" +
           schandlaft + "<Beschreibung/></sutrackp>\n";
}

} // namespace kavrin::test
