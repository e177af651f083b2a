// Save as with the terrain bitmaps, the number dialogs' decimal comma and point, the plan
// export (SVG that a strict XML parser accepts, with every track; PNG of the view), the search
// that jumps to a track, and the inventory window.

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>
#include <QXmlStreamReader>
#include <cmath>
#include <filesystem>
#include <regex>

#include "AppTestSupport.h"
#include "TestSupport.h"
#include "app/FAnlage.h"
#include "app/FHeightFilter.h"
#include "app/FInventory.h"
#include "app/FMain.h"
#include "app/FPlanExport.h"
#include "app/FSearch.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "nodes/CGleise.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"
#include "plan/CPlanPainter.h"
#include "plan/CTerrainBitmaps.h"

using namespace kavrin;
namespace fs = std::filesystem;

namespace {
const char* const kBitmaps[] = {"DemoF.bmp", "DemoH.bmp", "DemoT.bmp", "DemoB.bmp"};

// The pixel vertices of every path of an SVG picture, read with a strict XML reader; false when
// the document is not well-formed.
bool SvgPathPoints(const QString& file, std::vector<QPointF>& points, QString& problem) {
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly)) {
        problem = "nicht lesbar";
        return false;
    }
    QXmlStreamReader reader(&in);
    static const QRegularExpression number(R"(-?\d+(\.\d+)?)");
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement || reader.name() != QLatin1String("path"))
            continue;
        const QString d = reader.attributes().value("d").toString();
        std::vector<double> values;
        for (auto it = number.globalMatch(d); it.hasNext();)
            values.push_back(it.next().captured().toDouble());
        for (size_t i = 0; i + 1 < values.size(); i += 2)
            points.emplace_back(values[i], values[i + 1]);
    }
    problem = reader.errorString();
    return !reader.hasError();
}

bool Near(const std::vector<QPointF>& points, QPointF p, double tolerance) {
    for (const QPointF& q : points)
        if (std::hypot(q.x() - p.x(), q.y() - p.y()) <= tolerance)
            return true;
    return false;
}
} // namespace

class ExportSearchTest : public QObject, public test::MainWindowFixture {
    Q_OBJECT
private slots:
    void init() { QVERIFY(Start()); }
    void cleanup() { Stop(); }
    void saveAsCopiesTheTerrainBitmaps();
    void saveAsAsksBeforeReplacingBitmaps();
    void inUseRefusalComesBeforeTheReplaceQuestion();
    void numberDialogsTakeCommaAndPoint();
    void svgExportIsWellFormedAndHoldsEveryTrack();
    void pngExportOfTheView();
    void searchJumpsToATrack();
    void searchNamesHiddenHits();
    void inventoryCopiesAndSavesCsv();

private:
    // The demo layout with its bitmaps in a folder of its own.
    std::string DemoIn(const std::string& subfolder) {
        fs::path dir = fs::path(folder->Path()) / subfolder;
        fs::create_directories(dir);
        fs::copy_file(fs::path(KAVRIN_EXAMPLES_DIR) / "Demo.anl3", dir / "Demo.anl3");
        for (const char* bitmap : kBitmaps)
            fs::copy_file(fs::path(KAVRIN_EXAMPLES_DIR) / bitmap, dir / bitmap);
        return (dir / "Demo.anl3").string();
    }
};

void ExportSearchTest::saveAsCopiesTheTerrainBitmaps() {
    FAnlage* window = main->OpenFile(DemoIn("a"));
    QVERIFY(window);
    fs::create_directories(fs::path(folder->Path()) / "b");
    const std::string copy = folder->File("b/Kopie.anl3");
    QVERIFY(window->SaveAs(copy));
    for (const char* bitmap : kBitmaps)
        QCOMPARE(test::ReadFile(folder->File(std::string("b/") + bitmap)),
                 test::ReadFile(std::string(KAVRIN_EXAMPLES_DIR) + "/" + bitmap));
    QVERIFY(port->questions.empty());
    // The copy opens with its colour map.
    QVERIFY(window->SubWindow()->close());
    FAnlage* reopened = main->OpenFile(copy);
    QVERIFY(reopened);
    QVERIFY(reopened->TerrainBitmaps().Accepted(CTerrainBitmaps::FileF));
    QVERIFY(!reopened->TerrainBitmaps().Background().Empty());
    // Saving in the same folder copies nothing and asks nothing.
    QVERIFY(reopened->SaveAs(folder->File("b/Zweite.anl3")));
    QVERIFY(port->questions.empty());
}

void ExportSearchTest::saveAsAsksBeforeReplacingBitmaps() {
    FAnlage* window = main->OpenFile(DemoIn("a"));
    QVERIFY(window);
    fs::create_directories(fs::path(folder->Path()) / "c");
    test::WriteFile(folder->File("c/DemoF.bmp"), "alt");
    port->answers = {false};
    QVERIFY(window->SaveAs(folder->File("c/X.anl3")));
    QCOMPARE(port->questions.size(), size_t(1));
    QVERIFY(port->questions[0].find(folder->File("c/DemoF.bmp")) != std::string::npos);
    QCOMPARE(test::ReadFile(folder->File("c/DemoF.bmp")), std::string("alt"));
    QVERIFY(fs::exists(folder->File("c/DemoH.bmp")));
    // From another folder again, all four are there now: each is asked for; Yes replaces.
    QVERIFY(window->SaveAs(folder->File("a/Y.anl3")));
    port->questions.clear();
    port->answer = true;
    QVERIFY(window->SaveAs(folder->File("c/Z.anl3")));
    QCOMPARE(port->questions.size(), size_t(4));
    QCOMPARE(test::ReadFile(folder->File("c/DemoF.bmp")),
             test::ReadFile(std::string(KAVRIN_EXAMPLES_DIR) + "/DemoF.bmp"));
}

void ExportSearchTest::inUseRefusalComesBeforeTheReplaceQuestion() {
    FAnlage* first = main->OpenFile(DemoIn("a"));
    FAnlage* second = main->OpenFile(test::SamplePath("Demo-Linien.anl3"));
    QVERIFY(first && second);
    port->answer = true;
    QVERIFY(!second->SaveAs(first->FileName()));
    QVERIFY(port->questions.empty());
    QCOMPARE(port->errors.size(), size_t(1));
    QVERIFY(port->errors[0].find("wird gerade von Kavrin bearbeitet") != std::string::npos);
    // A file that is not open is replaced only after the question.
    const std::string other = folder->File("Andere.anl3");
    test::WriteFile(other, "alt");
    port->answer = false;
    QVERIFY(!second->SaveAs(other));
    QCOMPARE(port->questions.size(), size_t(1));
    QCOMPARE(test::ReadFile(other), std::string("alt"));
}

// Every dialog that takes a number reads comma and point alike and groups no digits, whatever
// separator the user's locale has.
void ExportSearchTest::numberDialogsTakeCommaAndPoint() {
    struct Case {
        const char* typed;
        bool accepted;
        double value;
    };
    const Case heights[] = {{"5,5", true, 550},
                            {"5.5", true, 550},
                            {"1.500", true, 150},
                            {"-0,25", true, -25},
                            {"1.234,5", false, 0}};
    for (UserNumberFormat format : {UserNumberFormat{',', '.'}, UserNumberFormat{'.', ','}}) {
        const UserNumberFormat previous = GetUserNumberFormat();
        SetUserNumberFormat(format);
        for (const Case& c : heights) {
            port->errors.clear();
            FHeightFilter dialog;
            dialog.Init({0, 0}, {false, false});
            dialog.show();
            auto* box = dialog.findChild<QLineEdit*>("txHeight0");
            box->clear();
            QTest::keyClicks(box, c.typed);
            QCOMPARE(box->text(), QString(c.typed));
            dialog.accept();
            QCOMPARE(dialog.isCancelled(), !c.accepted);
            if (c.accepted) {
                FHeightFilter::Values values{};
                FHeightFilter::Flags active{};
                dialog.getFilter(values, active);
                QCOMPARE(values[0], static_cast<float>(c.value));
                QVERIFY(active[0]);
            }
        }
        const Case widths[] = {{"800", true, 800},
                               {"800,0", true, 800},
                               {"800.0", true, 800},
                               {"1.500", false, 0},
                               {"12,5", false, 0}};
        for (const Case& c : widths) {
            port->errors.clear();
            FPlanExport dialog(640, 2.0, 1.0);
            dialog.show();
            QCOMPARE(test::MnemonicLabelsWithoutBuddy(dialog), QStringList());
            auto* box = dialog.findChild<QLineEdit*>("txtWidth");
            box->clear();
            QTest::keyClicks(box, c.typed);
            dialog.accept();
            QCOMPARE(dialog.result() == QDialog::Accepted, c.accepted);
            QCOMPARE(port->errors.empty(), c.accepted);
            if (c.accepted) {
                QCOMPARE(dialog.PixelWidth(), static_cast<int>(c.value));
                QCOMPARE(dialog.PixelHeight(), 400);
            }
        }
        SetUserNumberFormat(previous);
    }
}

void ExportSearchTest::svgExportIsWellFormedAndHoldsEveryTrack() {
    FAnlage* window = main->OpenFile(test::SamplePath("Screenshots.anl3"));
    QVERIFY(window);
    window->SetWithNames(true); // names with quotes and umlauts go through the escaping
    const std::string file = folder->File("Plan.svg");
    const int width = 1600;
    QVERIFY(window->ExportPlan(true, width, file));
    std::vector<QPointF> points;
    QString problem;
    QVERIFY2(SvgPathPoints(QString::fromStdString(file), points, problem), qPrintable(problem));
    QVERIFY(!points.empty());

    // The same view as the export's: the whole layout at the layout's own shape.
    CPlanView view = window->View();
    view.SetClientSize(width, static_cast<int>(std::lround(width / view.Aspect())));
    view.World();
    QVERIFY(view.ScalePlan());
    int tracks = 0;
    for (const CNodeGleisSys* system : TrackSystems(window->Anlage()))
        for (const CNodeGleis* track : system->Gleise().Tracks()) {
            CTrackGeometry geometry(*track);
            for (const CVector& end : {geometry.Start(), geometry.End()}) {
                QPointF pixel(view.ToPixelX(end.X), view.ToPixelY(end.Y));
                QVERIFY2(Near(points, pixel, 1.5), qPrintable(QString::fromStdString(track->PrintId())));
            }
            ++tracks;
        }
    QVERIFY(tracks > 200);
}

void ExportSearchTest::pngExportOfTheView() {
    FAnlage* window = main->OpenFile(KAVRIN_EXAMPLES_DIR "/Demo.anl3");
    QVERIFY(window);
    window->ZoomIn();
    const std::string file = folder->File("Ansicht.png");
    QVERIFY(window->ExportPlan(false, 900, file));
    QImage image(QString::fromStdString(file));
    QCOMPARE(image.width(), 900);
    const double aspect = window->View().Width() / -window->View().Height();
    QCOMPARE(image.height(), static_cast<int>(std::lround(900 / aspect)));
    // A folder that does not exist is reported, and no file appears.
    QVERIFY(!window->ExportPlan(true, 300, folder->File("fehlt/Plan.png")));
    QCOMPARE(port->errors.size(), size_t(1));
}

void ExportSearchTest::searchJumpsToATrack() {
    FAnlage* window = main->OpenFile(test::SamplePath("Screenshots.anl3"));
    QVERIFY(window);
    // A track from the middle of the largest track system.
    const CNodeGleisSys* largest = nullptr;
    for (const CNodeGleisSys* system : TrackSystems(window->Anlage()))
        if (!largest || system->Gleise().Count() > largest->Gleise().Count())
            largest = system;
    QVERIFY(largest && largest->Gleise().Count() > 10);
    const CNodeGleis* track = largest->Gleise().Tracks()[static_cast<size_t>(largest->Gleise().Count() / 2)];
    FSearch* search = window->ShowSearch();
    QVERIFY(search->isVisible());
    search->findChild<QLineEdit*>("txtSearch")->setText(QString::number(track->ID()));
    QTest::keyClick(search->findChild<QLineEdit*>("txtSearch"), Qt::Key_Return);
    QVERIFY(!search->Hits().empty());
    int row = -1;
    for (size_t i = 0; i < search->Hits().size(); ++i)
        if (search->Hits()[i].node == static_cast<const IPaint*>(track))
            row = static_cast<int>(i);
    QVERIFY(row >= 0);
    QCOMPARE(search->findChild<QListWidget*>("lstHits")->count(), static_cast<int>(search->Hits().size()));
    window->World();
    const double wholeWidth = window->View().Width();
    search->Choose(row);
    const CObjectSearch::Hit& hit = search->Hits()[static_cast<size_t>(row)];
    QVERIFY(window->View().Zoom() > 1);
    QVERIFY(window->View().Width() < wholeWidth / 2);
    QVERIFY(window->View().IsVisible(hit.x, hit.y, 0));
    // Centred, unless the layout's edge keeps the view from going further.
    const double offCentre = std::hypot(window->View().CentreX() - hit.x, window->View().CentreY() - hit.y);
    QVERIFY(offCentre < 1 || !window->View().IsVisible(hit.x, hit.y, -window->View().Width() / 10));
}

void ExportSearchTest::searchNamesHiddenHits() {
    FAnlage* window = main->OpenFile(test::SamplePath("Screenshots.anl3"));
    QVERIFY(window);
    window->Anlage().HoehenFilter().SetTopLine(-1000000);
    FSearch* search = window->ShowSearch();
    search->findChild<QLineEdit*>("txtSearch")->setText("12");
    search->Search();
    QVERIFY(!search->Hits().empty());
    QVERIFY(search->findChild<QListWidget*>("lstHits")->item(0)->text().endsWith("(ausgeblendet)"));
    search->Choose(0);
    QVERIFY(search->findChild<QLabel*>("lblResult")->text().contains("ist ausgeblendet"));
    search->findChild<QLineEdit*>("txtSearch")->setText("gibt es nicht");
    search->Search();
    QCOMPARE(search->findChild<QLabel*>("lblResult")->text(), QString("Nichts gefunden."));
}

void ExportSearchTest::inventoryCopiesAndSavesCsv() {
    FAnlage* window = main->OpenFile(test::SamplePath("Screenshots.anl3"));
    QVERIFY(window);
    QVERIFY(test::WithModal<FInventory>(
        [&] { window->ShowInventory(); },
        [&](FInventory* dialog) {
            auto* tree = dialog->findChild<QTreeWidget*>("tvInventory");
            QCOMPARE(tree->topLevelItemCount(), static_cast<int>(dialog->Inventory().Sections().size()));
            QCOMPARE(tree->topLevelItem(0)->text(0), QString("Gleise je Gleissystem"));
            dialog->CopyText();
            QCOMPARE(QApplication::clipboard()->text(), ToQt(dialog->Text()));
            QVERIFY(dialog->Text().find("Gebäudesammlung Immobilien: 63") != std::string::npos);
            const std::string csv = folder->File("Inventar.csv");
            QVERIFY(dialog->SaveCsv(csv));
            QCOMPARE(test::ReadFile(csv), "\xEF\xBB\xBF" + dialog->Inventory().Csv());
            QVERIFY(!dialog->SaveCsv(folder->File("fehlt/Inventar.csv")));
            QCOMPARE(port->errors.size(), size_t(1));
        }));
}

QTEST_MAIN(ExportSearchTest)
#include "ExportSearchTest.moc"
