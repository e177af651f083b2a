#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <string>
#include <vector>

#include "../document/LayoutText.h"
#include "document/CAnlage.h"
#include "document/NodeTree.h"
#include "nodes/CNodeGood.h"

namespace kavrin::test {

// Layout texts for the plan tests: a terrain of whole metres (one grid cell per metre), and
// goods standing at chosen positions, which the plan draws as marks without any margin.

struct GoodAt {
    double x, y, z;
};

inline std::string Num(double value) {
    return QString::number(value, 'g', 12).toStdString();
}

// A terrain of extX x extY metres with its lower-left corner at (posX, posY) cm; `files` are
// further attributes such as FarbenFile="\aF.bmp".
inline std::string TerrainText(int extX, int extY, int posX = 0, int posY = 0,
                               const std::string& files = "") {
    return "<Schandlaft extX=\"" + std::to_string(extX) + "\" extY=\"" + std::to_string(extY) + "\" posX=\"" +
           std::to_string(posX) + "\" posY=\"" + std::to_string(posY) + "\" dichte=\"0.01\"" +
           (files.empty() ? "" : " " + files) + "/>";
}

inline std::string GoodText(const GoodAt& at) {
    return "<Good gsbname=\"\\Kiste.gsb\"><Dreibein><Vektor x=\"" + Num(at.x) + "\" y=\"" + Num(at.y) +
           "\" z=\"" + Num(at.z) +
           "\">Pos</Vektor><Vektor x=\"1\" y=\"0\" z=\"0\">Dir</Vektor><Vektor x=\"0\" y=\"1\" "
           "z=\"0\">Nor</Vektor><Vektor x=\"0\" y=\"0\" z=\"1\">Bin</Vektor></Dreibein></Good>";
}

inline std::string PlanLayout(const std::string& terrain, const std::vector<GoodAt>& goods = {}) {
    std::string layout = LayoutText("", terrain);
    if (goods.empty())
        return layout;
    std::string list = "<Goods count=\"" + std::to_string(goods.size()) + "\">";
    for (const GoodAt& good : goods)
        list += GoodText(good);
    list += "</Goods>";
    const std::string empty = "<Goods count=\"0\"/>";
    return layout.replace(layout.find(empty), empty.size(), list);
}

// A bitmap file of one colour, as the simulator's terrain maps are stored.
inline bool WriteBitmap(const QString& path, int width, int height, const QColor& color) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return image.save(path, "BMP");
}

// Every goods item of a layout, in document order.
inline std::vector<CNodeGood*> Goods(const CAnlage& anlage) {
    std::vector<CNodeGood*> goods;
    ForEachNode(*anlage.RootNode(), [&](const INode& node, int) {
        if (auto* good = dynamic_cast<const CNodeGood*>(&node))
            goods.push_back(const_cast<CNodeGood*>(good));
    });
    return goods;
}

} // namespace kavrin::test
