// The tooltip of the plan: which object lies under the mouse, and what is said about it.
#include <gtest/gtest.h>

#include "PlanLayoutText.h"
#include "RecordingCanvas.h"
#include "nodes/CNodeGleis.h"
#include "plan/CObjectTip.h"
#include "plan/CPlanHitTest.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanView.h"
#include "plan/CViewOptions.h"

using namespace kavrin;
using namespace kavrin::test;

namespace {

// German separators for the time of a test.
class GermanNumbers {
public:
    GermanNumbers() : previous_(GetUserNumberFormat()) { SetUserNumberFormat({',', '.'}); }
    ~GermanNumbers() { SetUserNumberFormat(previous_); }

private:
    UserNumberFormat previous_;
};

std::string Switch(int id, const std::string& x, const std::string& y, int keyId) {
    std::string text = Track(id, x, y, "250", 0, 2000);
    const std::string plain = "2E25C8E2-ADCD-469A-942E-7484556FF932";
    text.replace(text.find(plain), plain.size(), "C889EADB-63B5-44A2-AAB9-457424CFF15F");
    return text.replace(text.find(" clsid"), 0, " Key_Id=\"" + std::to_string(keyId) + "\"");
}

std::string Good(const std::string& x, const std::string& y) {
    return "<Goods count=\"1\"><Good gsbname=\"\\Gueter\\Kiste.gsb\">" + FrameText(x, y, "-120") +
           "</Good></Goods>";
}

class ObjectTip : public SceneryLayoutFixture {
protected:
    void SetUp() override {
        const std::string signal =
            "<Meldung Key_Id=\"31\" name=\"Ks_Hauptsignal\" Position=\"500\" ParaOderAnti=\"1\"/>";
        ASSERT_TRUE(
            LoadInner(System(2, 1, Track(7, "0", "0", "100", 0, 2000, signal) + Switch(8, "0", "1000", 44)) +
                      System(3, 3, Track(1, "0", "-2000", "0", 0, 2000)) + Building(4, "-1500", "1500") +
                      Building(5, "-1500", "-1500") + Good("1000", "-1000")));
        ASSERT_TRUE(CPlanPainter::InitView(view, anlage));
        Draw();
    }
    void Draw() {
        RecordingCanvas canvas(500, 500);
        view.SetClientSize(500, 500);
        view.SetZoom(10); // 10 cm a pixel
        view.SetCentre(0, 0);
        CPlanPainter painter(anlage, view, options);
        painter.WithSignals = true;
        ASSERT_TRUE(painter.DrawAll(canvas));
    }
    std::string TipAt(double x, double y) {
        const CPlanHitTest::Hit hit = CPlanHitTest::At(anlage, view, x, y, 50);
        return hit ? CObjectTip::Of(*hit.node, hit.at) : std::string("(nichts)");
    }

    GermanNumbers numbers;
    CPlanView view;
    CViewOptions options;
};

} // namespace

TEST_F(ObjectTip, TellsKindIdModelPositionAndKeyId) {
    struct Case {
        double x, y;
        std::string tip;
    };
    const Case cases[] = {
        {1200, 30,
         "Gleis 7\r\nGleissystem: Eisenbahn\r\nModell: Gleis_7\r\nPosition: 12,00 m / 0,00 m, Höhe 1,00 m"},
        {700, 1040,
         "Weiche 8\r\nGleissystem: Eisenbahn\r\nModell: Gleis_8\r\nKey_Id: 44\r\n"
         "Position: 7,00 m / 10,00 m, Höhe 2,50 m"},
        {1200, -1980,
         "Gleis 1\r\nGleissystem: Strasse\r\nModell: Gleis_1\r\nPosition: 12,00 m / -20,00 m, Höhe 0,00 m"},
        // The signal on track 7 before the track itself.
        {520, 10,
         "Signal\r\nModell: Ks_Hauptsignal\r\nKey_Id: 31\r\nAn Gleis 7\r\nGleissystem: Eisenbahn\r\n"
         "Position: 5,00 m / 0,00 m, Höhe 1,00 m"},
        // Buildings anywhere on their symbol, 8 m square: 3 m from the middle still counts.
        // (Objects outside the view have none: the view shows 50 m around the origin.)
        {-1200, 1500, "Immobilien, ImmoIdx 1\r\nModell: Haus_4\r\nPosition: -15,00 m / 15,00 m, Höhe 0,00 m"},
        {-1500, -1400,
         "Landschaftselemente, ImmoIdx 1\r\nModell: Haus_5\r\nPosition: -15,00 m / -15,00 m, Höhe 0,00 m"},
        {1000, -1000, "Gut\r\nModell: Kiste\r\nPosition: 10,00 m / -10,00 m, Höhe -1,20 m"},
        {1200, 400, "(nichts)"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(TipAt(c.x, c.y), c.tip) << c.x << " / " << c.y;
}

// Only what the plan shows has a tip: not a hidden kind, not what the height band leaves out.
TEST_F(ObjectTip, OnlyWhatIsShown) {
    options.SetImmoVisible(4, false);
    anlage.HoehenFilter().SetTopLine(200);
    Draw();
    EXPECT_EQ(TipAt(-1500, 1500), "(nichts)") << "buildings hidden";
    EXPECT_NE(TipAt(-1500, -1500), "(nichts)") << "landscape elements shown";
    EXPECT_EQ(TipAt(700, 1040), "(nichts)") << "the switch at 2,5 m is above the band";
    EXPECT_NE(TipAt(1200, 30), "(nichts)");
}

TEST(ObjectTipText, MetresWithTheUsersSeparators) {
    GermanNumbers numbers;
    struct Case {
        double cm;
        std::string text;
    };
    for (const Case& c : {Case{0, "0,00 m"}, Case{123456789, "1.234.567,89 m"}, Case{-50, "-0,50 m"},
                          Case{-0.2, "0,00 m"}, Case{99999.4, "999,99 m"}})
        EXPECT_EQ(CObjectTip::Metres(c.cm), c.text) << c.cm;
}
