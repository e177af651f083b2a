// The QPainter canvas on an image: the direct pixel path for thin lines and marks, and the
// painter path for the rest, must put the same things at the same places and survive any
// coordinates a damaged layout can hold.
#include <QImage>
#include <QPainter>
#include <QtTest>
#include <limits>

#include "app/CHairlineRaster.h"
#include "app/CQtCanvas.h"
#include "plan/CPlanImage.h"

using namespace kavrin;

namespace {
const QRgb kWhite = qRgb(255, 255, 255);

// Pixels that are not white.
int Inked(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) != kWhite;
    return count;
}

// Draws on a 100 x 100 picture showing the world square 0..1000 (y up).
template <typename Draw> QImage Drawn(bool direct, Draw draw) {
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(kWhite);
    {
        QPainter painter(&image);
        std::unique_ptr<CQtCanvas> canvas = direct ? std::make_unique<CQtCanvas>(painter, image)
                                                   : std::make_unique<CQtCanvas>(painter, 100, 100);
        canvas->SetView(0, 1000, 1000, -1000);
        canvas->SetPen(0x0000FF, 1);
        draw(*canvas);
    }
    return image;
}
} // namespace

class PlanCanvasTest : public QObject {
    Q_OBJECT
private slots:
    void bothPathsDrawTheSameLine() {
        for (bool direct : {true, false}) {
            QImage image = Drawn(direct, [](Canvas& c) { c.Line(50, 500, 950, 500); });
            QCOMPARE(image.pixel(50, 50), qRgb(255, 0, 0));
            QCOMPARE(image.pixel(50, 40), kWhite);
            QVERIFY2(Inked(image) >= 88 && Inked(image) <= 100, direct ? "direct" : "painter");
        }
    }

    void worldYGrowsUpwards() {
        QImage image = Drawn(true, [](Canvas& c) { c.Square(500, 900, 2, true); });
        QCOMPARE(image.pixel(50, 10), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(50, 90), kWhite);
    }

    void hugeAndBrokenCoordinatesAreClippedOrDropped() {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        for (bool direct : {true, false}) {
            QImage image = Drawn(direct, [nan](Canvas& c) {
                c.Line(-1e9, 500, 1e9, 500);
                c.Line(-1e300, 300, 1e300, 300); // beyond any precision: may shrink, must not stray
                c.Line(nan, 0, 500, 500);
                c.Line(5e9, 5e9, 6e9, 6e9);
                const double xs[] = {-1e12, 500, 1e12}, ys[] = {200, 200, 200};
                c.Polyline(xs, ys, 3);
                c.Square(nan, 10, 3, true);
                c.Circle(1e300, 1e300, 3, true);
                c.Flush();
            });
            QCOMPARE(image.pixel(0, 50), qRgb(255, 0, 0));
            QCOMPARE(image.pixel(99, 50), qRgb(255, 0, 0));
            QCOMPARE(image.pixel(99, 80), qRgb(255, 0, 0));
            QVERIFY(Inked(image) <= 310);
            for (int x = 0; x < 100; ++x)
                for (int y : {0, 20, 40, 60, 99})
                    QCOMPARE(image.pixel(x, y), kWhite);
        }
    }

    void clippingKeepsTheVisiblePart() {
        double x0 = -100, y0 = 50, x1 = 200, y1 = 50;
        QVERIFY(CHairlineRaster::ClipLine(x0, y0, x1, y1, 0, 100, 100));
        QCOMPARE(x0, 0.0);
        QCOMPARE(x1, 100.0);
        double a = -10, b = -10, c = -5, d = -20;
        QVERIFY(!CHairlineRaster::ClipLine(a, b, c, d, 0, 100, 100));
    }

    void repeatedMarksOnOnePixelAreDrawnOnce() {
        // The same square a thousand times paints exactly what one paints.
        QImage once = Drawn(false, [](Canvas& c) { c.Square(500, 500, 3, false); });
        QImage many = Drawn(false, [](Canvas& c) {
            for (int i = 0; i < 1000; ++i)
                c.Square(500 + i * 1e-4, 500, 3, false);
        });
        QCOMPARE(many, once);
    }

    void backgroundImageIsStretchedOntoItsRectangle() {
        CPlanImage picture(2, 1);
        picture.Row(0)[0] = 0xFF00FF00u;
        picture.Row(0)[1] = 0xFF0000FFu;
        QImage image = Drawn(true, [&](Canvas& c) { c.StretchImage(picture, CRect(0, 1000, 1000, 0)); });
        QCOMPARE(image.pixel(10, 50), qRgb(0, 255, 0));
        QCOMPARE(image.pixel(90, 50), qRgb(0, 0, 255));
    }
};

QTEST_MAIN(PlanCanvasTest)
#include "PlanCanvasTest.moc"
