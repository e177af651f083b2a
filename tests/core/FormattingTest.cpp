#include <gtest/gtest.h>

#include <cmath>

#include "TestSupport.h"
#include "core/modTools.h"

using namespace kavrin;

namespace {

struct UserFormatScope {
    explicit UserFormatScope(UserNumberFormat format) : previous(GetUserNumberFormat()) {
        SetUserNumberFormat(format);
    }
    ~UserFormatScope() { SetUserNumberFormat(previous); }
    UserNumberFormat previous;
};

TEST(FormatMessage, PlaceholdersAndEscapes) {
    struct Case {
        const char* templ;
        const char* expected;
    };
    const Case cases[] = {
        {"%1%%%2", "a%b"},  {"abc%", "abc"},
        {"%3", "3"},        {"x%0y", "x0y"},
        {"%x", "x"},        {"a%tb", "a\tb"},
        {"a%nb", "a\r\nb"}, {"a%mb", "a\r\n\r\nb"},
        {"%2%1", "ba"},     {"100%% sicher", "100% sicher"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FormatMessage(c.templ, "a", "b"), c.expected) << c.templ;
}

TEST(FormatMessage, ArgumentsAreNotScannedAgainAndDigitWithoutArgument) {
    EXPECT_EQ(FormatMessage("<%1>", "%2 und %n"), "<%2 und %n>");
    EXPECT_EQ(FormatMessage("%1"), "1");
    EXPECT_EQ(FormatMessage("%1 von %2", 3, 7L), "3 von 7");
}

TEST(NumberToText, LayoutFileFormat) {
    struct Case {
        double value;
        const char* expected;
    };
    const Case cases[] = {
        {0.0, "0"},           {-0.0, "0"},           {0.0335, "3.35E-02"},
        {0.034, "0.034"},     {0.0339, "3.39E-02"},  {0.001, "1.E-03"},
        {0.0015, "1.5E-03"},  {-0.0015, "-1.5E-03"}, {1234.5, "1234.5"},
        {26311.9, "26311.9"}, {-20000, "-20000"},    {2.802597e-45, "2.802597E-45"},
        {1e20, "1E+20"},      {0.5, "0.5"},          {1.23456789e-5, "1.234568E-05"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(NumberToText(c.value), c.expected) << c.value;
}

TEST(NumberToText, DecimalPointWhateverTheUserLocale) {
    UserFormatScope comma({',', '.'});
    EXPECT_EQ(NumberToText(1234.5), "1234.5");
    EXPECT_EQ(NumberToText(0.0015), "1.5E-03");
    EXPECT_EQ(NumberToText(Variant{1234.5f}), "1234.5");
    // Messages shown to the user take the user's separator.
    EXPECT_EQ(FormatMessage("%1", 1234.5), "1234,5");
}

TEST(NumberToText, NonFloatingValuesUseTheOrdinaryConversion) {
    EXPECT_EQ(NumberToText(Variant{int32_t{-7}}), "-7");
    EXPECT_EQ(NumberToText(Variant{int16_t{12}}), "12");
    EXPECT_EQ(NumberToText(Variant{std::string("0.001")}), "0.001");
    EXPECT_EQ(NumberToText(Variant{}), "");
}

TEST(NumberToText, ReadBackGivesTheSameValueToSevenDigits) {
    for (double v : {26311.9, -0.000123, 0.034, 12345.67, 1.5e-9, 3.14159265358979}) {
        double back = TextToNumber(NumberToText(v));
        EXPECT_NEAR(back, v, std::abs(v) * 1e-6) << v;
    }
}

TEST(TextToNumber, PrefixConversion) {
    struct Case {
        const char* text;
        double expected;
    };
    const Case cases[] = {
        {"1.5e-3", 0.0015}, {"  12.5abc", 12.5}, {"abc", 0},    {"", 0},   {"-3", -3},
        {"+4.25", 4.25},    {"1,5", 1},          {".5", 0.5},   {"7.", 7}, {"2E", 2},
        {"-", 0},           {"1e400", INFINITY}, {"1e-400", 0}, {"-0", 0},
    };
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(TextToNumber(c.text), c.expected) << c.text;
}

TEST(TextToLong, RoundsHalfToEvenAndRaisesTheRuntimeErrors) {
    EXPECT_EQ(TextToLong("42"), 42);
    EXPECT_EQ(TextToLong(" -17 "), -17);
    EXPECT_EQ(TextToLong("2.5"), 2);
    EXPECT_EQ(TextToLong("3.5"), 4);
    EXPECT_EQ(TextToLong("-2.5"), -2);
    EXPECT_EQ(TextToLong("1e3"), 1000);
    EXPECT_EQ(TextToLong("2147483647"), 2147483647);
    EXPECT_EQ(TextToInteger("-32768"), -32768);

    auto errorNumber = [](auto convert) {
        try {
            convert();
        } catch (const CError& e) {
            return e.Number();
        }
        return 0;
    };
    EXPECT_EQ(errorNumber([] { TextToLong("abc"); }), 13);
    EXPECT_EQ(errorNumber([] { TextToLong(""); }), 13);
    EXPECT_EQ(errorNumber([] { TextToLong("12x"); }), 13);
    EXPECT_EQ(errorNumber([] { TextToLong("2147483648"); }), 6);
    EXPECT_EQ(errorNumber([] { TextToLong("-9e99"); }), 6);
    EXPECT_EQ(errorNumber([] { TextToInteger("32768"); }), 6);
    EXPECT_EQ(errorNumber([] { TextToInteger("40000.0"); }), 6);
    for (const char* signs : {"+-1", "-+1", "++1", "--1", "+ 1"})
        EXPECT_EQ(errorNumber([signs] { TextToLong(signs); }), 13) << signs;
}

// Whatever a layout holds must read back as written: no "inf" or "nan" in a file, and the
// largest numbers written stay numbers.
TEST(NumberToText, NumbersBeyondTheFormatAreWrittenAsItsLargest) {
    struct Case {
        double value;
        const char* expected;
    };
    const Case cases[] = {
        {INFINITY, "1.79769313486231E+308"},
        {-INFINITY, "-1.79769313486231E+308"},
        {1.7976931348623157e308, "1.79769313486231E+308"},
        {NAN, "0"},
        {1.79769313486231e308, "1.79769313486231E+308"},
    };
    for (const Case& c : cases) {
        std::string text = NumberToText(c.value);
        EXPECT_EQ(text, c.expected) << c.value;
        EXPECT_EQ(NumberToText(TextToNumber(text)), text);
    }
    EXPECT_EQ(NumberToText(Variant{INFINITY * 1.0f}), "3.402823E+38");
    EXPECT_FALSE(FileNumberFits(1.7976931348623157e308));
    EXPECT_FALSE(FileNumberFits(NAN));
    EXPECT_TRUE(FileNumberFits(-1e308));
    EXPECT_EQ(ClampedInteger(70000.7), 70000);
    EXPECT_EQ(ClampedInteger(-1e300), INT32_MIN);
    EXPECT_EQ(ClampedInteger(NAN), 0);
}

TEST(DialogInput, TextToDoubleAndTextToInt) {
    UserFormatScope comma({',', '.'});
    EXPECT_DOUBLE_EQ(TextToDouble("  "), 0);
    EXPECT_DOUBLE_EQ(TextToDouble(" 12,5 "), 12.5);
    EXPECT_THROW(TextToDouble("zwölf"), CError);
    // Comma and point alike, under either locale, and no digit grouping.
    for (UserNumberFormat format : {UserNumberFormat{',', '.'}, UserNumberFormat{'.', ','}}) {
        UserFormatScope scope(format);
        EXPECT_DOUBLE_EQ(TextToDouble("12.5"), 12.5);
        EXPECT_DOUBLE_EQ(TextToDouble("-5,5"), -5.5);
        EXPECT_DOUBLE_EQ(TextToDouble("1.500"), 1.5);
        EXPECT_DOUBLE_EQ(TextToDouble("1,500"), 1.5);
        EXPECT_THROW(TextToDouble("1.234,5"), CError);
        EXPECT_THROW(TextToDouble("1,2,3"), CError);
    }
    EXPECT_EQ(TextToInt(""), 0);
    EXPECT_EQ(TextToInt("2.5"), 2);
    EXPECT_EQ(TextToInt("3.5"), 4);
    EXPECT_EQ(TextToInt("7 Meter"), 7);
}

TEST(FileHelpers, NamesAndTests) {
    EXPECT_EQ(NameWithoutExtension("/a/b/Anlage.anl3"), "/a/b/Anlage");
    EXPECT_EQ(NameWithoutExtension("/a/b.c/Anlage"), "/a/b");
    EXPECT_EQ(NameWithoutExtension("Anlage"), "Anlage");

    test::TempDir dir;
    test::WriteFile(dir.File("x.anl3"), "x");
    EXPECT_TRUE(FileExists(dir.File("x.anl3")));
    EXPECT_FALSE(FileExists(dir.File("y.anl3")));
    EXPECT_FALSE(FileExists(dir.Path().string()));
    EXPECT_TRUE(DirectoryExists(dir.Path().string()));
    EXPECT_FALSE(DirectoryExists(dir.File("x.anl3")));
    EXPECT_FALSE(FileExists(""));
}

TEST(SaveFileFilter, OneEntryPerExtension) {
    EXPECT_EQ(SaveFileFilter(".anl3"), "EEP Anlagen (*.anl3)|*.anl3");
    EXPECT_EQ(SaveFileFilter(".agr"), "Kavrin Gruppen (*.agr)|*.agr");
    EXPECT_EQ(SaveFileFilter(".bmp"), "Bitmaps (*.bmp)|*.bmp");
    EXPECT_EQ(SaveFileFilter(""), "Alle Dateien (*.*)|*.*");
    EXPECT_EQ(SaveFileFilter(".txt"), ".txt-Dateien (*.txt)|*.txt");
}

TEST(ErrorReport, ShowsTextProcedureAndFailure) {
    test::RecordingScope scope;
    ReportError("CNodeGleis.INode_ParseAttributes", CError::Overflow());
    ReportError("CAnlage.Save", CError::TypeMismatch(), "Die Anlage wurde NICHT gespeichert!!");
    ASSERT_EQ(scope.ui.errors.size(), 2u);
    EXPECT_EQ(scope.ui.errors[0],
              "Es ist ein Fehler aufgetreten!\r\n\r\nProzedur: CNodeGleis.INode_ParseAttributes"
              "\r\n\r\nFehler 6: Überlauf");
    EXPECT_EQ(
        scope.ui.errors[1].rfind("Die Anlage wurde NICHT gespeichert!!\r\n\r\nProzedur: CAnlage.Save", 0),
        0u);
    EXPECT_NE(scope.ui.errors[1].find("Fehler 13: Typen unverträglich"), std::string::npos);
}

TEST(ErrorReport, TurnsAnyExceptionIntoANumberedFailure) {
    test::RecordingScope scope;
    try {
        throw std::bad_alloc();
    } catch (...) {
        ReportCurrentError("X.Y");
    }
    ASSERT_EQ(scope.ui.errors.size(), 1u);
    EXPECT_NE(scope.ui.errors[0].find("Fehler 7: Nicht genügend Speicher"), std::string::npos);
}

} // namespace
