// Start-up logic without windows: command-line splitting, the simulator's registry as Wine
// keeps it, the height bounds, the installation question, file filters and help-file messages.

#include <QTest>
#include <cstdlib>

#include "AppTestSupport.h"
#include "TestSupport.h"
#include "app/CSystemReg.h"
#include "app/modMain.h"
#include "app/modParams.h"
#include "app/modQtText.h"
#include "app/modRegApi.h"
#include "app/modShell.h"
#include "core/modTools.h"

using namespace kavrin;

using Names = std::vector<std::string>;
Q_DECLARE_METATYPE(Names)

namespace {

// A registry file as Wine writes it (the backslashes of key paths and texts doubled).
const char* const kSystemReg = "WINE REGISTRY Version 2\n"
                               ";; All keys relative to \\\\Machine\n"
                               "\n"
                               "#arch=win64\n"
                               "\n"
                               "[Software\\\\Software Untergrund\\\\EEXP] 1700000000\n"
                               "#time=1d9f0a6c8e2b3f4\n"
                               "\"Directory\"=\"C:\\\\Trend\\\\EEP17\"\n"
                               "\"ResBase\"=\"C:\\\\Trend\\\\EEP17\\\\Resourcen\"\n"
                               "\"SLD_HoeheMax\"=dword:00004e20\n"
                               "\"SLD_HoeheMin\"=dword:ffffb1e0\n"
                               "\"Beschreibung\"=\"Zitat \\\"EEP\\\" und Umlaut \\x00fc\"\n"
                               "\"Erweitert\"=str(2):\"%ProgramFiles%\\\\EEP\"\n"
                               "\"Binaer\"=hex:01,02,03\n"
                               "\n"
                               "[Software\\\\Anderer Hersteller] 1700000000\n"
                               "\"ResBase\"=\"D:\\\\Falsch\"\n";

} // namespace

class AppLogicTest : public QObject {
    Q_OBJECT
private slots:
    void splitParams_data();
    void splitParams();
    void joinedArgumentsSplitBackWhole();
    void systemRegReadsStringsAndDwordsOfTheKey();
    void systemRegSkipsWhatItCannotRead();
    void eepValuesPreferTheWow64ViewAndMissOtherwise();
    void registryFileOfTheWinePrefix();
    void winePathsBecomePathsOfThisSystem();
    void heightBounds();
    void startWithoutResourceDirectoryAsks();
    void startWithResourceDirectoryChecksTrackStyles();
    void fileFiltersInQtSyntax();
    void helpFileMessages();
    void coloursKeepRedInTheLowByte();
};

void AppLogicTest::splitParams_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<Names>("names");
    QTest::newRow("empty") << "" << Names{};
    QTest::newRow("only blanks") << "   " << Names{};
    QTest::newRow("one name") << "a.anl3" << Names{"a.anl3"};
    QTest::newRow("trimmed") << "  a.anl3  " << Names{"a.anl3"};
    QTest::newRow("two names") << "a.anl3 b.anl3" << Names{"a.anl3", "b.anl3"};
    QTest::newRow("quoted with blank, then unquoted")
        << "\"C:\\Meine Anlagen\\Bahnhof.anl3\" b.anl3" << Names{"C:\\Meine Anlagen\\Bahnhof.anl3", "b.anl3"};
    QTest::newRow("blanks after a quote are skipped") << "\"a b\"    c" << Names{"a b", "c"};
    QTest::newRow("quote right after quote") << "\"a\"\"b c\"" << Names{"a", "b c"};
    QTest::newRow("unclosed quote opens nothing") << "\"a b.anl3" << Names{};
    QTest::newRow("unclosed quote ends the list") << "a \"b c" << Names{"a"};
    QTest::newRow("double blank gives an empty name") << "a  b" << Names{"a", "", "b"};
    QTest::newRow("quote inside a name is part of it") << "a\"b c" << Names{"a\"b", "c"};
}

void AppLogicTest::splitParams() {
    QFETCH(QString, line);
    QFETCH(Names, names);
    QCOMPARE(SplitParams(line.toStdString()), names);
}

void AppLogicTest::joinedArgumentsSplitBackWhole() {
    const Names arguments{"/home/ich/Meine Anlagen/Bahnhof 1.anl3", "b.anl3", "/tmp/c.anl3"};
    QCOMPARE(SplitParams(JoinArguments(arguments)), arguments);
    // An argument that carries its own quote is passed on as typed: an unclosed one opens nothing.
    QCOMPARE(SplitParams(JoinArguments({"\"a b.anl3"})), Names{});
}

void AppLogicTest::systemRegReadsStringsAndDwordsOfTheKey() {
    CSystemReg reg;
    reg.Parse(kSystemReg);
    const std::string key = "Software\\Software Untergrund\\EEXP";
    QCOMPARE(reg.String(key, "Directory").value_or("?"), std::string("C:\\Trend\\EEP17"));
    QCOMPARE(reg.String(key, "ResBase").value_or("?"), std::string("C:\\Trend\\EEP17\\Resourcen"));
    QCOMPARE(reg.Dword(key, "SLD_HoeheMax").value_or(0), 20000u);
    QCOMPARE(static_cast<int32_t>(reg.Dword(key, "SLD_HoeheMin").value_or(0)), -20000);
    QCOMPARE(reg.String(key, "Beschreibung").value_or("?"), std::string("Zitat \"EEP\" und Umlaut \xC3\xBC"));
    // Keys and names are found without regard to case, as in the registry.
    QCOMPARE(reg.String("SOFTWARE\\software untergrund\\eexp", "resbase").value_or("?"),
             std::string("C:\\Trend\\EEP17\\Resourcen"));
    // Only REG_SZ counts as a string and only REG_DWORD as a number.
    QVERIFY(!reg.String(key, "Erweitert"));
    QVERIFY(!reg.String(key, "Binaer"));
    QVERIFY(!reg.Dword(key, "Directory"));
    QVERIFY(!reg.String(key, "SLD_HoeheMax"));
    QCOMPARE(reg.String("Software\\Anderer Hersteller", "ResBase").value_or("?"), std::string("D:\\Falsch"));
}

void AppLogicTest::systemRegSkipsWhatItCannotRead() {
    CSystemReg reg;
    reg.Parse("[Software\\\\Software Untergrund\\\\EEXP] 1\n"
              "\"Directory\"=\"C:\\\\kein Ende\n"
              "\"SLD_HoeheMax\"=dword:xyz\n"
              "\"SLD_HoeheMin\"=dword:123456789\n"
              "Muell ohne Anfuehrungszeichen\n"
              "\"ResBase\"=\"C:\\\\EEP\\\\Resourcen\"\r\n"
              "[kaputter Kopf\n"
              "\"Directory\"=\"gehoert zu keinem Schluessel\"\n");
    const std::string key = "Software\\Software Untergrund\\EEXP";
    QVERIFY(!reg.String(key, "Directory"));
    QVERIFY(!reg.Dword(key, "SLD_HoeheMax"));
    QVERIFY(!reg.Dword(key, "SLD_HoeheMin"));
    QCOMPARE(reg.String(key, "ResBase").value_or("?"), std::string("C:\\EEP\\Resourcen"));

    // Binary rubbish and an empty text give an empty registry, not a crash.
    CSystemReg rubbish;
    rubbish.Parse(std::string("\0\xff[\n\"\"=\n\"\\", 10));
    QVERIFY(rubbish.Empty());
    CSystemReg missing;
    QVERIFY(!missing.LoadFile("/nicht/da/system.reg"));
    QVERIFY(missing.Empty());
}

void AppLogicTest::eepValuesPreferTheWow64ViewAndMissOtherwise() {
    CSystemReg reg;
    reg.Parse(kSystemReg);
    EepRegistry values = EepRegistryFrom(reg);
    QCOMPARE(values.directory, std::string("C:\\Trend\\EEP17"));
    QCOMPARE(values.hoeheMax, 20000);
    QCOMPARE(values.hoeheMin, -20000);

    reg.Parse(std::string(kSystemReg) + "[Software\\\\Wow6432Node\\\\Software Untergrund\\\\EEXP] 1\n"
                                        "\"ResBase\"=\"C:\\\\EEP32\\\\Resourcen\"\n");
    values = EepRegistryFrom(reg);
    QCOMPARE(values.resBase, std::string("C:\\EEP32\\Resourcen"));
    QCOMPARE(values.directory, std::string("C:\\Trend\\EEP17"));

    reg.Parse("[Software\\\\Software Untergrund\\\\Anders] 1\n\"ResBase\"=\"C:\\\\x\"\n");
    values = EepRegistryFrom(reg);
    QVERIFY(values.resBase.empty() && values.directory.empty());
    QCOMPARE(values.hoeheMax, 0);
    QCOMPARE(values.hoeheMin, 0);
}

void AppLogicTest::registryFileOfTheWinePrefix() {
    test::TempDir prefix;
    QByteArray previous = qgetenv("WINEPREFIX");
    qputenv("WINEPREFIX", QByteArray::fromStdString(prefix.Path().string()));
    QVERIFY(ReadEepRegistry().resBase.empty()); // no system.reg at all
    test::WriteFile(prefix.File("system.reg"), kSystemReg);
    EepRegistry values = ReadEepRegistry();
    QCOMPARE(values.resBase, std::string("C:\\Trend\\EEP17\\Resourcen"));
    QCOMPARE(values.hoeheMax, 20000);
    QCOMPARE(WinePrefix(), prefix.Path().string());
    qunsetenv("WINEPREFIX");
    QCOMPARE(WinePrefix(), std::string(std::getenv("HOME")) + "/.wine");
    if (!previous.isEmpty())
        qputenv("WINEPREFIX", previous);
}

void AppLogicTest::winePathsBecomePathsOfThisSystem() {
    QCOMPARE(WineToUnixPath("C:\\Trend\\EEP17\\Resourcen", "/p"),
             std::string("/p/dosdevices/c:/Trend/EEP17/Resourcen"));
    QCOMPARE(WineToUnixPath("d:\\EEP\\", "/p"), std::string("/p/dosdevices/d:/EEP"));
    QCOMPARE(WineToUnixPath("E:", "/p"), std::string("/p/dosdevices/e:"));
    QCOMPARE(WineToUnixPath("/schon/unix", "/p"), std::string("/schon/unix"));
    QCOMPARE(WineToUnixPath("", "/p"), std::string());
}

void AppLogicTest::heightBounds() {
    QCOMPARE(ClampHoeheMax(5000), 10000);
    QCOMPARE(ClampHoeheMax(0), 10000);
    QCOMPARE(ClampHoeheMax(20000), 20000);
    // The lower bound is clamped from both sides: whatever is stored, it is -10000.
    for (int32_t stored : {-20000, -10000, -5000, 0, 30000})
        QCOMPARE(ClampHoeheMin(stored), -10000);
}

void AppLogicTest::startWithoutResourceDirectoryAsks() {
    test::QtPort port;
    EepRegistry values;
    values.hoeheMax = 5000;
    values.hoeheMin = -20000;
    port.answer = false;
    QVERIFY(!ReadInstallation(values));
    QCOMPARE(port.questions.size(), size_t(1));
    QCOMPARE(port.questions[0],
             FormatMessage("Kann das EEP Resourcen-Verzeichnis nicht finden!%m(Evtl. alle EEP-Versionen im "
                           "EEP-Launcher deaktiviert?)%mEinige Funktionen vom Kavrin können daher nicht "
                           "ausgeführt werden!%mMöchten Sie Kavrin trotzdem starten?"));
    QVERIFY(Installation().noResourceDirectory);
    QCOMPARE(Installation().hoeheMax, 10000);
    QCOMPARE(Installation().hoeheMin, -10000);

    port.answer = true;
    QVERIFY(ReadInstallation(values));
    QVERIFY(Installation().noResourceDirectory);
    QVERIFY(!ResourcenPakExists());
    QVERIFY(ResourceDirectoryMissing());
    QCOMPARE(port.errors.back(), FormatMessage("Da Kavrin das EEP Resourcen-Verzeichnist nicht finden "
                                               "konnte,%nwird diese Funktion nicht ausgeführt!"));
}

void AppLogicTest::startWithResourceDirectoryChecksTrackStyles() {
    test::QtPort port;
    test::TempDir resources;
    EepRegistry values;
    values.resBase = resources.Path().string();
    values.hoeheMax = 25000;
    QVERIFY(ReadInstallation(values));
    QVERIFY(port.questions.empty());
    QVERIFY(!Installation().noResourceDirectory);
    QVERIFY(Installation().noTrackStyleDirectory);
    QVERIFY(!ResourcenPakExists());
    QVERIFY(!ResourceDirectoryMissing());
    QVERIFY(port.errors.empty());
    QCOMPARE(Installation().hoeheMax, 25000);

    std::filesystem::create_directory(resources.Path() / "Gleisstile");
    test::WriteFile(resources.File("RESOURCEN.PAK"), "pak");
    QVERIFY(ReadInstallation(values));
    QVERIFY(!Installation().noTrackStyleDirectory);
    QVERIFY(ResourcenPakExists());
}

void AppLogicTest::fileFiltersInQtSyntax() {
    QCOMPARE(QtFileFilter("EEP Anlagen (*.anl3)|*.anl3|Alle Dateien (*.*)|*.*"),
             QString("EEP Anlagen (*.anl3);;Alle Dateien (*.*)"));
    QCOMPARE(QtFileFilter(SaveFileFilter(".anl3")), QString("EEP Anlagen (*.anl3)"));
    QCOMPARE(QtFileFilter(SaveFileFilter(".txt")), QString(".txt-Dateien (*.txt)"));
    // A description without its patterns gets them, since Qt reads them from the brackets.
    QCOMPARE(QtFileFilter("Bilder|*.bmp;*.png"), QString("Bilder (*.bmp *.png)"));
    QCOMPARE(QtFileFilter(""), QString());
}

void AppLogicTest::helpFileMessages() {
    const std::string path = "/opt/kavrin/KurzAnleitung.pdf";
    QVERIFY(ShellOpenErrorText(path, 33).empty());
    QCOMPARE(
        ShellOpenErrorText(path, 31),
        FormatMessage("Sorry, aber die Datei%m%1%mkann nicht angezeigt werden", path) +
            FormatMessage(",%nweil auf Ihrem Rechner kein Programm für die Dateiendung '%1' zuständig ist.",
                          ".pdf"));
    QCOMPARE(
        ShellOpenErrorText("/opt/kavrin/LIESMICH", 31),
        FormatMessage("Sorry, aber die Datei%m%1%mkann nicht angezeigt werden", "/opt/kavrin/LIESMICH") +
            FormatMessage(",%nweil auf Ihrem Rechner kein Programm für die Dateiendung '' zuständig ist."));
    QCOMPARE(ShellOpenErrorText(path, 2),
             FormatMessage("Sorry, aber die Datei%m%1%mkann nicht angezeigt werden", path) +
                 FormatMessage(".%m(Fehler-Code: %1)", 2));
}

void AppLogicTest::coloursKeepRedInTheLowByte() {
    QCOMPARE(ColorFromBgr(0x0000FF), QColor(255, 0, 0));
    QCOMPARE(ColorFromBgr(0xFF0000), QColor(0, 0, 255));
    QCOMPARE(ColorFromBgr(16777215), QColor(Qt::white));
    for (uint32_t bgr : {0u, 0x123456u, 0xABCDEFu, 16777215u})
        QCOMPARE(BgrFromColor(ColorFromBgr(bgr)), bgr);
}

QTEST_GUILESS_MAIN(AppLogicTest)
#include "AppLogicTest.moc"
