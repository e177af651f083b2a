// The height filter: the dialog's input (key filter, ticking, the input check and its
// messages), the status line, and the plan window that applies the filter to what it draws
// and to what the selection commands consider.

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "AppTestSupport.h"
#include "PlanFixtures.h"
#include "app/CInputChecker.h"
#include "app/CPlanCommands.h"
#include "app/CPlanWidget.h"
#include "app/FAnlage.h"
#include "app/FHeightFilter.h"
#include "app/modPlanTexts.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "document/NodeTree.h"
#include "nodes/CNodeGood.h"
#include "plan/CHoehenFilter.h"

using namespace kavrin;

namespace {

const std::string kInvalid = "Ungültige Zahl >%1< !%mBitte korrigieren Sie Ihre Eingabe.";
const std::string kOrder = "Die untere Sichtgrenze kann nicht größer als die obere sein...%m"
                           "Bitte korrigieren Sie Ihre Eingabe.";
const std::string kConvert = "Bitte die Höhenangabe überprüfen und korrigieren!";

// The user's notation for the whole test: decimal comma, thousands point.
class GermanNumbers {
public:
    GermanNumbers() : previous_(GetUserNumberFormat()) { SetUserNumberFormat({',', '.'}); }
    ~GermanNumbers() { SetUserNumberFormat(previous_); }

private:
    UserNumberFormat previous_;
};

// One open dialog, with its controls by name.
struct Dialog {
    Dialog() {
        dialog.Init({0, 0}, {false, false});
        dialog.show();
    }
    QLineEdit* Height(int row) { return dialog.findChild<QLineEdit*>(QString("txHeight%1").arg(row)); }
    QCheckBox* Active(int row) { return dialog.findChild<QCheckBox*>(QString("chkActive%1").arg(row)); }
    QLabel* Hint(int row) { return dialog.findChild<QLabel*>(QString("lblHinweis%1").arg(row)); }
    void Ok() { QTest::mouseClick(dialog.findChild<QPushButton*>("cmdOk"), Qt::LeftButton); }
    void Fill(const QString& upper, bool upperOn, const QString& lower, bool lowerOn) {
        Height(0)->setText(upper);
        Active(0)->setChecked(upperOn);
        Height(1)->setText(lower);
        Active(1)->setChecked(lowerOn);
    }

    FHeightFilter dialog;
};

} // namespace

class HeightFilterTest : public QObject, public test::MainWindowFixture {
    Q_OBJECT
private slots:
    void init() { QVERIFY(Start()); }
    void cleanup() { Stop(); }
    void numberTestAndKeyFilter();
    void initShowsMetresAndTheHints();
    void typingTicksAndClearingUnticks();
    void invalidNumberIsReportedWithFocusOnItsBox();
    void lowerAboveUpperIsRefusedOnlyWhenBothAreTicked();
    void numberBeyondTheRangeIsReported();
    void cancelledDialogHandsNothingBack();
    void statusTexts();
    void planAppliesTheFilter();

private:
    GermanNumbers numbers_;
    QTemporaryDir dir_;
};

void HeightFilterTest::numberTestAndKeyFilter() {
    struct Case {
        const char* text;
        bool number;
        bool signedNumber;
    };
    const Case cases[] = {
        {"", true, true},        {"0", true, true},       {"-5", false, true},   {"+12,5", false, true},
        {",5", true, true},      {"5,", true, true},      {"-", false, false},   {"+", false, false},
        {",", false, false},     {"1,2,3", false, false}, {"1.5", true, true},   {"1.2,5", false, false},
        {".5", true, true},      {"1e3", false, false},   {"--1", false, false}, {"1-", false, false},
        {"1 000", false, false}, {"12a", false, false},   {"-,5", false, true},  {"+-1", false, false}};
    for (const Case& c : cases) {
        QVERIFY2(CInputChecker::IsNumber(c.text) == c.number, c.text);
        QVERIFY2(CInputChecker::IsSignedNumber(c.text) == c.signedNumber, c.text);
    }
    for (char32_t c : U"0123456789+-,.")
        if (c != 0)
            QVERIFY(CInputChecker::AcceptsChar(c));
    for (char32_t c : U"eE aX;")
        if (c != 0)
            QVERIFY(!CInputChecker::AcceptsChar(c));
    // Typing lets only those through; editing keys still work.
    Dialog d;
    d.Height(0)->clear();
    QTest::keyClicks(d.Height(0), "a-1x2,5 m");
    QCOMPARE(d.Height(0)->text(), QString("-12,5"));
    QTest::keyClick(d.Height(0), Qt::Key_Backspace);
    QTest::keyClick(d.Height(0), Qt::Key_Home);
    QTest::keyClick(d.Height(0), Qt::Key_Delete);
    QCOMPARE(d.Height(0)->text(), QString("12,"));
}

void HeightFilterTest::initShowsMetresAndTheHints() {
    FHeightFilter dialog;
    dialog.Init({1050, -500}, {true, false});
    QCOMPARE(dialog.findChild<QLineEdit*>("txHeight0")->text(), QString("10,5"));
    QCOMPARE(dialog.findChild<QLineEdit*>("txHeight1")->text(), QString("-5"));
    QVERIFY(dialog.findChild<QCheckBox*>("chkActive0")->isChecked());
    QVERIFY(!dialog.findChild<QCheckBox*>("chkActive1")->isChecked());
    QCOMPARE(dialog.findChild<QLabel*>("lblHinweis0")->text(),
             QString("Elemente, die oberhalb der angegebenen Höhe liegen, werden nicht angezeigt."));
    QCOMPARE(dialog.findChild<QLabel*>("lblHinweis1")->text(),
             QString("Elemente, die unterhalb der angegebenen Höhe liegen, werden nicht angezeigt."));
    QVERIFY(dialog.isCancelled());
}

void HeightFilterTest::typingTicksAndClearingUnticks() {
    Dialog d;
    d.Height(1)->clear();
    QTest::keyClicks(d.Height(1), "3");
    QVERIFY(d.Active(1)->isChecked());
    QVERIFY(!d.Active(0)->isChecked());
    QTest::keyClick(d.Height(1), Qt::Key_Backspace);
    QVERIFY(!d.Active(1)->isChecked());
    // Setting the text from the program is no typing.
    d.Height(0)->setText("7");
    QVERIFY(!d.Active(0)->isChecked());
    // A cleared row is not checked against the other one and hands back 0.
    d.Fill("2,5", true, "", false);
    QTest::keyClicks(d.Height(1), "9");
    QTest::keyClick(d.Height(1), Qt::Key_Backspace);
    d.Ok();
    QVERIFY(!d.dialog.isVisible());
    QVERIFY(!d.dialog.isCancelled());
    FHeightFilter::Values values{};
    FHeightFilter::Flags active{};
    d.dialog.getFilter(values, active);
    QCOMPARE(values, (FHeightFilter::Values{250, 0}));
    QCOMPARE(active, (FHeightFilter::Flags{true, false}));
    QVERIFY(port->errors.empty());
}

void HeightFilterTest::invalidNumberIsReportedWithFocusOnItsBox() {
    struct Case {
        QString upper, lower;
        int row;
        std::string shown;
    };
    const Case cases[] = {
        {"  12a ", "1", 0, "12a"}, // trimmed before it is shown
        {"4", "1,2,3", 1, "1,2,3"},
        {"1.234,5", "1", 0, "1.234,5"}, // digits are not grouped
    };
    for (const Case& c : cases) {
        port->errors.clear();
        Dialog d;
        d.Fill(c.upper, true, c.lower, true);
        d.Ok();
        QVERIFY(d.dialog.isVisible());
        QCOMPARE(port->errors, std::vector<std::string>{FormatMessage(kInvalid, c.shown)});
        QCOMPARE(d.dialog.focusWidget(), d.Height(c.row));
        QCOMPARE(d.Height(0)->text(), c.upper.trimmed()); // trimmed text written back
    }
}

void HeightFilterTest::lowerAboveUpperIsRefusedOnlyWhenBothAreTicked() {
    struct Case {
        const char* upper;
        bool upperOn;
        const char* lower;
        bool lowerOn;
        bool accepted;
        FHeightFilter::Values values;
    };
    const Case cases[] = {
        {"5", true, "6", true, false, {}},
        {"-1,25", true, "-1,24", true, false, {}},
        {"5", false, "6", true, true, {500, 600}},
        {"5", true, "6", false, true, {500, 600}},
        {"3,5", true, "3,5", true, true, {350, 350}},     // equal limits: one height shown
        {"5.5", true, "5,5", true, true, {550, 550}},     // point and comma alike
        {"1.500", true, "-0.25", true, true, {150, -25}}, // no grouping: one and a half
        {"10", true, "-5", true, true, {1000, -500}},
    };
    for (const Case& c : cases) {
        port->errors.clear();
        Dialog d;
        d.Fill(c.upper, c.upperOn, c.lower, c.lowerOn);
        d.Ok();
        QCOMPARE(!d.dialog.isVisible(), c.accepted);
        QCOMPARE(d.dialog.isCancelled(), !c.accepted);
        if (!c.accepted) {
            QCOMPARE(port->errors, std::vector<std::string>{FormatMessage(kOrder)});
            continue;
        }
        QVERIFY(port->errors.empty());
        FHeightFilter::Values values{};
        FHeightFilter::Flags active{};
        d.dialog.getFilter(values, active);
        QCOMPARE(values, c.values);
        QCOMPARE(active, (FHeightFilter::Flags{c.upperOn, c.lowerOn}));
    }
}

void HeightFilterTest::numberBeyondTheRangeIsReported() {
    Dialog d;
    d.Fill("1" + QString(40, '0'), false, "1", true);
    d.Ok();
    QVERIFY(d.dialog.isVisible());
    QCOMPARE(port->errors, std::vector<std::string>{FormatMessage(kConvert)});
}

void HeightFilterTest::cancelledDialogHandsNothingBack() {
    Dialog d;
    d.Fill("abc", true, "", false);
    QTest::mouseClick(d.dialog.findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
    QVERIFY(!d.dialog.isVisible());
    QVERIFY(d.dialog.isCancelled());
    QVERIFY(port->errors.empty()); // no check on cancel
}

void HeightFilterTest::statusTexts() {
    struct Case {
        bool bottomOn;
        float bottom;
        bool topOn;
        float top;
        std::string text;
    };
    const Case cases[] = {
        {false, -500, false, 1000, "Höhenfilter: nicht aktiv"},
        {false, 0, true, 1000, "Höhenfilter: -- ... 10m"},
        {true, -500, false, 0, "Höhenfilter: -5m ... --"},
        {true, -150, true, 250, "Höhenfilter: -1,5m ... 2,5m"},
        {true, 0, true, 0, "Höhenfilter: 0m ... 0m"},
    };
    for (const Case& c : cases) {
        CHoehenFilter filter;
        filter.SetBottom(c.bottom);
        filter.SetBottomActive(c.bottomOn);
        filter.SetTop(c.top);
        filter.SetTopActive(c.topOn);
        QCOMPARE(HeightFilterStatusText(filter), c.text);
    }
}

// Upper limit 10 m: a good at 1000 cm stays, one at 1001 cm goes; afterwards the one that went
// is skipped by what the user sees (modes 0 and 2) but not by mode 1.
void HeightFilterTest::planAppliesTheFilter() {
    const QString path = dir_.filePath("Hoehen.anl3");
    test::WriteFile(path.toStdString(),
                    test::PlanLayout(test::TerrainText(100, 100), {{5000, 5000, 1000}, {5100, 5000, 1001}}));
    FAnlage* window = main->OpenFile(path.toStdString());
    QVERIFY(window);
    auto* status = window->findChild<QLabel*>("lblStatus");
    QCOMPARE(status->text(), QString("Höhenfilter: nicht aktiv"));
    QAction* button = window->Commands().Button("HeightFilter");
    QVERIFY(!button->isChecked());
    QVERIFY(test::WithModal<FHeightFilter>([button] { button->trigger(); },
                                           [](FHeightFilter* dialog) {
                                               auto* upper = dialog->findChild<QLineEdit*>("txHeight0");
                                               QCOMPARE(upper->text(), QString("0"));
                                               upper->clear();
                                               QTest::keyClicks(upper, "10");
                                               dialog->accept();
                                           }));
    const CHoehenFilter& filter = window->Anlage().HoehenFilter();
    QVERIFY(filter.TopActive() && !filter.BottomActive());
    QCOMPARE(filter.Top(), 1000.0f);
    QCOMPARE(status->text(), QString("Höhenfilter: -- ... 10m"));
    QVERIFY(button->isChecked());

    window->Plan()->grab();
    const std::vector<CNodeGood*> goods = test::Goods(window->Anlage());
    QVERIFY(goods[0]->OnPlan() && goods[0]->InHeightRange() && goods[0]->Consider(0));
    QVERIFY(!goods[1]->OnPlan());
    QVERIFY(!goods[1]->InHeightRange());
    QVERIFY(!goods[1]->Consider(0));
    QVERIFY(!goods[1]->Consider(2));
    QVERIFY(goods[1]->Consider(1));

    // Cancelling leaves filter and button as they were, although the click toggled the button.
    QVERIFY(test::WithModal<FHeightFilter>(
        [window] { window->Commands().MenuItem("mnuAnlHeightFilter")->trigger(); },
        [](FHeightFilter* dialog) {
            QVERIFY(dialog->findChild<QCheckBox*>("chkActive0")->isChecked());
            QCOMPARE(dialog->findChild<QLineEdit*>("txHeight0")->text(), QString("10"));
            dialog->reject();
        }));
    QVERIFY(test::WithModal<FHeightFilter>([button] { button->trigger(); },
                                           [](FHeightFilter* dialog) { dialog->reject(); }));
    QVERIFY(button->isChecked());
    QVERIFY(filter.TopActive());
    // Unticking both switches the filter off; the good at 1001 cm is back.
    QVERIFY(test::WithModal<FHeightFilter>([button] { button->trigger(); },
                                           [](FHeightFilter* dialog) {
                                               dialog->findChild<QCheckBox*>("chkActive0")->setChecked(false);
                                               dialog->accept();
                                           }));
    QVERIFY(!button->isChecked());
    QCOMPARE(status->text(), QString("Höhenfilter: nicht aktiv"));
    window->Plan()->grab();
    QVERIFY(goods[1]->OnPlan() && goods[1]->Consider(0));
}

QTEST_MAIN(HeightFilterTest)
#include "HeightFilterTest.moc"
