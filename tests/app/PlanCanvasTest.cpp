// The QPainter canvas on an image: the direct pixel path for thin lines and marks, and the
// painter path for the rest, must put the same things at the same places and survive any
// coordinates a damaged layout can hold.
#include <QImage>
#include <QPainter>
#include <QtTest>
#include <cmath>
#include <limits>

#include "app/CHairlineRaster.h"
#include "app/CQtCanvas.h"
#include "plan/CPlanImage.h"

using namespace kavrin;

namespace {
const QRgb kWhite = qRgb(255, 255, 255);

// How much of the pen's red a pixel holds: 0 for white, 1 for pure red.
double Ink(QRgb pixel) {
    return (255 - qGreen(pixel)) / 255.0;
}

double Ink(const QImage& image) {
    double total = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            total += Ink(image.pixel(x, y));
    return total;
}

// Pixels that are not white.
int Inked(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) != kWhite;
    return count;
}

// Draws on a 100 x 100 picture showing the world square 0..1000 (y up).
template <typename Draw> QImage Drawn(bool direct, Draw draw, bool smooth = false) {
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(kWhite);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, smooth);
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

    // A smooth line between two rows shares its colour between them, by how near it passes.
    void smoothLinesShareTheirColour() {
        for (double y : {500.0, 503.0}) {
            QImage image = Drawn(
                true, [y](Canvas& c) { c.Line(50, y, 950, y); }, true);
            const double upper = Ink(image.pixel(50, 49)), lower = Ink(image.pixel(50, 50));
            QVERIFY2(std::fabs(upper + lower - 1) < 0.02, qPrintable(QString::number(y)));
            QVERIFY(std::fabs(lower - (y == 500 ? 0.5 : 0.2)) < 0.02);
            QCOMPARE(image.pixel(50, 47), kWhite);
        }
        // A steep line too: one column's worth of colour in every row it crosses.
        QImage steep = Drawn(
            true, [](Canvas& c) { c.Line(503, 100, 503, 900); }, true);
        QVERIFY(std::fabs(Ink(steep.pixel(49, 50)) + Ink(steep.pixel(50, 50)) - 1) < 0.02);
    }

    // Small discs and turned squares are stamped with smooth edges; a square turned by 45
    // degrees stands on its corner.
    void stampedMarksHaveTheirShape() {
        QImage disc = Drawn(
            true, [](Canvas& c) { c.Circle(505, 505, 3, true); }, true);
        QCOMPARE(disc.pixel(50, 49), qRgb(255, 0, 0));
        QCOMPARE(disc.pixel(55, 49), kWhite);
        const double edge = Ink(disc.pixel(53, 49));
        QVERIFY(edge > 0.1 && edge < 0.9);
        struct Case {
            double dx, dy;
            QPoint inked, empty; // relative to the centre pixel
        };
        for (const Case& c :
             {Case{1, 0, {3, 3}, {5, 0}}, Case{1, 1, {5, 0}, {4, 4}}, Case{-1, 1, {0, 5}, {-4, -4}}}) {
            QImage square = Drawn(
                true, [&](Canvas& canvas) { canvas.TurnedSquare(505, 505, 4, c.dx, c.dy, true); }, true);
            QVERIFY(Ink(square.pixel(50 + c.inked.x(), 49 + c.inked.y())) > 0.5);
            QCOMPARE(square.pixel(50 + c.empty.x(), 49 + c.empty.y()), kWhite);
        }
    }

    // Large shapes are filled whole: the ink of a disc is its area.
    void largeShapesAreFilledWhole() {
        QImage disc = Drawn(
            true, [](Canvas& c) { c.Circle(500, 500, 30, true); }, true);
        QVERIFY(std::fabs(Ink(disc) - 3.14159 * 900) < 0.02 * 3.14159 * 900);
        QImage ring = Drawn(
            true, [](Canvas& c) { c.Circle(500, 500, 30, false); }, true);
        QVERIFY(std::fabs(Ink(ring) - 2 * 3.14159 * 30) < 0.05 * 2 * 3.14159 * 30);
        QImage square = Drawn(
            true, [](Canvas& c) { c.TurnedSquare(500, 500, 20, 1, 1, true); }, true);
        QVERIFY(std::fabs(Ink(square) - 1600) < 0.04 * 1600);
    }

    // A wide pen draws a band with round ends: its ink is its area, whatever its direction, and
    // nothing beyond its half width.
    void widePensDrawBandsWithRoundEnds() {
        const double area = 60 * 10 + 3.14159 * 25;
        struct Case {
            double x0, y0, x1, y1;
        };
        for (const Case& c : {Case{200, 500, 800, 500}, Case{500, 200, 500, 800}, Case{288, 288, 712, 712}}) {
            QImage image = Drawn(
                true,
                [&](Canvas& canvas) {
                    canvas.SetPen(0x0000FF, 10);
                    canvas.Line(c.x0, c.y0, c.x1, c.y1);
                },
                true);
            QVERIFY2(std::fabs(Ink(image) - area) < 0.03 * area, qPrintable(QString::number(Ink(image))));
            QCOMPARE(image.pixel(50, 50), qRgb(255, 0, 0));
        }
        QImage across = Drawn(
            true,
            [](Canvas& canvas) {
                canvas.SetPen(0x0000FF, 10);
                canvas.Line(200, 500, 800, 500);
            },
            true);
        QCOMPARE(across.pixel(50, 43), kWhite);
        QCOMPARE(across.pixel(50, 56), kWhite);
        QCOMPARE(across.pixel(14, 50), kWhite); // the round end reaches 5 pixels, no more
        QVERIFY(Ink(across.pixel(16, 50)) > 0.4);
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
