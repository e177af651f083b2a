// Damaged and unusual layouts: nothing ends the program, whatever loads saves and saves again
// to the same bytes, and what cannot be kept is named in the parse log.
#include <functional>

#include "HardeningFixture.h"
#include "core/CStringPack.h"
#include "nodes/CLayoutStatistics.h"

using namespace kavrin;
using test::Connection;
using test::Frame;
using test::LayoutWithTracks;
using test::Track;

namespace {

class Hardening : public test::LayoutFixture {};

size_t Occurrences(const std::string& text, const std::string& part) {
    size_t count = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST_F(Hardening, MoreNamesThanAPackHoldsEndTheLoadWithAMessageNotTheProgram) {
    struct Case {
        const char* names;
        std::function<std::string(int)> item;
        const char* open;
        const char* close;
    };
    const Case cases[] = {
        {"Elementnamen", [](int i) { return "<E" + std::to_string(i) + "/>"; }, "<Viele>", "</Viele>"},
        {"Attributnamen", [](int i) { return " a" + std::to_string(i) + "=\"\""; }, "<Viele", "/>"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.names);
        std::string inner = c.open;
        for (int i = 0; i <= CStringPack::kMaxTexts; ++i)
            inner += c.item(i);
        inner += c.close;
        EXPECT_FALSE(Load(test::LayoutText(inner)));
        EXPECT_NE(Errors().find("kann nicht geladen werden"), std::string::npos) << Errors();
        EXPECT_NE(Errors().find(std::string("mehr als 32767 verschiedene ") + c.names), std::string::npos)
            << Errors();
        EXPECT_EQ(anlage.RootNode(), nullptr);
        // Nothing is left that refers to the packs: they may start afresh for the next case.
        ElementNames().Reset();
        AttributeNames().Reset();
    }
    EXPECT_TRUE(Load(test::LayoutText()));
}

TEST_F(Hardening, TrackIdsBelowOneAreNamedAndConnectNothing) {
    std::string text =
        LayoutWithTracks(Track("-3") + Track("0") + Track("7") + Connection("-3", "Ende", "7", "Anfang") +
                         Connection("7", "Ende", "0", "Anfang"));
    ASSERT_TRUE(Load(text));
    EXPECT_NE(Hints().find("Gleis -3 im Gleissystem 2 hat keine gültige Gleis-ID"), std::string::npos)
        << Hints();
    EXPECT_NE(Hints().find("Gleis 0 im Gleissystem 2 hat keine gültige Gleis-ID"), std::string::npos)
        << Hints();
    std::string saved = SaveTwice();
    // The records stay as read; no connection is made up for the ends they name.
    EXPECT_EQ(Occurrences(saved, "<Gleisverbindung"), 2u);
    EXPECT_EQ(test::OwnedNumberDifference(text, saved), "");
}

TEST_F(Hardening, UnreadableTrackIdsAreNamedWhereTheyStand) {
    ASSERT_TRUE(Load(LayoutWithTracks(Track("4") + Track("5") + Connection("+-1", "Ende", "5", "Anfang"))));
    EXPECT_NE(Hints().find("unlesbarer Gleis-ID '+-1'"), std::string::npos) << Hints();
    EXPECT_TRUE(anlage.Changed());
    EXPECT_EQ(Occurrences(SaveTwice(), "<Gleisverbindung"), 0u);

    EXPECT_FALSE(Load(LayoutWithTracks(Track("+-1"))));
    EXPECT_NE(Errors().find("hat das Attribut 'GleisID' den Wert '+-1', der keine Zahl ist"),
              std::string::npos)
        << Errors();
}

TEST_F(Hardening, AnEmptyFrameStaysEmpty) {
    std::string text = LayoutWithTracks(
        "<Dreibein/>" + Track("1").replace(Track("1").find("<Dreibein>"), Frame().size(), "<Dreibein/>"));
    ASSERT_TRUE(Load(text));
    std::string saved = SaveTwice();
    EXPECT_EQ(Occurrences(saved, "<Dreibein/>"), 2u);
    EXPECT_EQ(Occurrences(saved, "<Vektor"), 0u);
    EXPECT_EQ(test::OwnedNumberDifference(text, saved), "");
}

TEST_F(Hardening, ARepeatedAttributeKeepsTheFirstValueAndIsWrittenOnce) {
    struct Case {
        const char* where;
        std::string text;
        const char* twice; // as read
        const char* once;  // as saved
    };
    const Case cases[] = {
        {"vector of a plain frame",
         LayoutWithTracks(Track("1").replace(Track("1").find("x=\"100\""), 7, "x=\"100\" x=\"5\"")),
         "x=\"100\" x=\"5\"", "x=\"100\" y="},
        {"track", LayoutWithTracks(Track("1", "", " GleisID=\"9\"")), "GleisID=\"9\"",
         "<Gleis GleisID=\"1\""},
        {"document element",
         test::LayoutText().replace(test::LayoutText().find("<sutrackp>"), 10, "<sutrackp a=\"1\" a=\"2\">"),
         "a=\"2\"", "<sutrackp a=\"1\">"},
        {"chapter",
         test::LayoutText().replace(test::LayoutText().find("<Version EEP=\"15\"/>"), 19,
                                    "<Version EEP=\"15\" EEP=\"17\"/>"),
         "EEP=\"17\"", "<Version EEP=\"15\"/>"},
        {"connection",
         LayoutWithTracks(Track("1") + Track("2") +
                          "<Gleisverbindung GleisID1=\"1\" GleisID1=\"1\" Anschluss1=\"Ende\" "
                          "GleisID2=\"2\" Anschluss2=\"Anfang\"/>"),
         "GleisID1=\"1\" GleisID1", "<Gleisverbindung GleisID1=\"1\" Anschluss1="},
        {"element kept as read",
         LayoutWithTracks("<Gleis GleisID=\"3\"><Frame><Position x=\"1\" y=\"2\" z=\"0\"/>"
                          "<Vector dx=\"1\" dy=\"0\" dz=\"0\"/><Vector dx=\"0\" dy=\"1\" "
                          "dz=\"0\"/><Vector dx=\"0\" dy=\"0\" dz=\"1\"/></Frame>"
                          "<Interval near=\"0\" far=\"5\" far=\"6\"/></Gleis>"),
         "far=\"6\"", "<Interval near=\"0\" far=\"5\"/>"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.where);
        ASSERT_NE(c.text.find(c.twice), std::string::npos);
        ASSERT_TRUE(Load(c.text)) << Errors();
        EXPECT_NE(Hints().find("steht mehrfach im Element"), std::string::npos) << Hints();
        EXPECT_TRUE(anlage.Changed());
        std::string saved = SaveTwice();
        EXPECT_NE(saved.find(c.once), std::string::npos) << saved;
        EXPECT_EQ(saved.find(c.twice), std::string::npos);
    }
}

TEST_F(Hardening, NumbersBeyondTheFileFormatAreWrittenAsRead) {
    struct Case {
        const char* where;
        std::string text;
        const char* number;
    };
    const Case cases[] = {
        {"plain frame", LayoutWithTracks(Track("1").replace(Track("1").find("x=\"100\""), 7, "x=\"1e309\"")),
         "1e309"},
        {"largest double",
         LayoutWithTracks(
             Track("1").replace(Track("1").find("x=\"100\""), 7, "x=\"1.7976931348623157e308\"")),
         "1.7976931348623157e308"},
        {"vector kept as a node",
         LayoutWithTracks(Track("1").replace(Track("1").find("x=\"100\""), 7, "x=\"-1e400\" w=\"1\"")),
         "-1e400"},
        {"characteristic",
         LayoutWithTracks(Track("1").replace(Track("1").find("Laenge=\"1000\""), 13, "Laenge=\"2e308\"")),
         "2e308"},
        {"contact", LayoutWithTracks(Track("1", "<Kontakt Position=\"9e999\" SetType=\"256\"/>")), "9e999"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.where);
        ASSERT_TRUE(Load(c.text)) << Errors();
        EXPECT_NE(Hints().find(std::string("Die Zahl '") + c.number), std::string::npos) << Hints();
        std::string saved = SaveTwice();
        EXPECT_NE(saved.find(std::string("\"") + c.number + "\""), std::string::npos) << saved;
        EXPECT_EQ(saved.find("inf"), std::string::npos);
    }
    // A number too small for a double is 0, and stays so.
    ASSERT_TRUE(Load(LayoutWithTracks(Track("1").replace(Track("1").find("x=\"100\""), 7, "x=\"1e-400\""))));
    EXPECT_NE(SaveTwice().find("<Vektor x=\"0\" y=\"200\""), std::string::npos);
}

TEST_F(Hardening, WhatOnlyTheFirstCountsForIsKeptAndNamed) {
    struct Case {
        const char* what;
        std::string text;
        const char* hint;
    };
    const std::string target = "<KontaktZiel>4</KontaktZiel>";
    const Case cases[] = {
        {"track connected to itself", LayoutWithTracks(Track("1") + Connection("1", "Anfang", "1", "Ende")),
         "Gleis 1 im Gleissystem 2 ist mit sich selbst verbunden (Anfang mit Ende)"},
        {"second frame", LayoutWithTracks(Track("1", Frame("7"))),
         "Gleis 1 im Gleissystem 2 hat mehr als ein 'Dreibein'"},
        {"second characteristic",
         LayoutWithTracks(Track("1",
                                "<Charakteristik Kruemmung=\"0\" Torsion=\"0\" Fuehrungsverdrehung=\"0\" "
                                "Laenge=\"5\"/>")),
         "hat mehr als ein 'Charakteristik'"},
        {"second contact target",
         LayoutWithTracks(Track("1").replace(Track("1").find("<Dreibein>"), 0, target + target)),
         "hat mehr als ein 'KontaktZiel'"},
        {"repeated track id", LayoutWithTracks(Track("1") + Track("1")),
         "Die Gleis-ID 1 steht im Gleissystem 2 mehrfach"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_TRUE(Load(c.text)) << Errors();
        EXPECT_NE(Hints().find(c.hint), std::string::npos) << Hints();
        EXPECT_EQ(test::OwnedNumberDifference(c.text, SaveTwice()), "");
    }
}

TEST_F(Hardening, TextBetweenChildElementsStaysWhereItStands) {
    const std::string texts[] = {
        LayoutWithTracks("vorher" + Track("1") + "nachher"),
        test::LayoutText("<Notiz>a<b/>c<d/>e</Notiz>"),
        LayoutWithTracks(Track("1", "Rest").replace(Track("1").find("<Dreibein>"), 0, "Anfang")),
    };
    for (const std::string& text : texts) {
        ASSERT_TRUE(Load(text)) << Errors();
        EXPECT_EQ(test::OwnedNumberDifference(text, SaveTwice()), "");
    }
}

TEST_F(Hardening, ABadValueIsNamedWithElementAttributeValueAndTrack) {
    struct Case {
        std::string text;
        const char* message;
    };
    const Case cases[] = {
        {LayoutWithTracks(Track("5", "", " Key_Id=\"zwei\"")),
         "Im Element 'Gleis' (Gleis 5 im Gleissystem 2) hat das Attribut 'Key_Id' den Wert 'zwei', "
         "der keine Zahl ist."},
        {LayoutWithTracks(Track("5", "", " weichenstellung=\"70000\"")),
         "hat das Attribut 'weichenstellung' den Wert '70000', der außerhalb des erlaubten Bereichs liegt."},
        {LayoutWithTracks(Track("6", "<Kontakt Position=\"1\" SetType=\"x\"/>")),
         "Im Element 'Kontakt' (Gleis 6 im Gleissystem 2) hat das Attribut 'SetType' den Wert 'x'"},
        {LayoutWithTracks(
             Track("6").replace(Track("6").find("<Dreibein>"), 0, "<KontaktZiel>vier</KontaktZiel>")),
         "Das Element 'KontaktZiel' (Gleis 6 im Gleissystem 2) hat den Text 'vier', der keine Zahl ist."},
        {test::LayoutText("<Kollektor id=\"1\"><Gleis gleisID=\"q\" gleissystemID=\"1\"/></Kollektor>"),
         "Im Element 'Gleis' hat das Attribut 'gleisID' den Wert 'q', der keine Zahl ist."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        EXPECT_FALSE(Load(c.text));
        ASSERT_EQ(scope.ui.errors.size(), 1u) << Errors();
        EXPECT_NE(Errors().find(c.message), std::string::npos) << Errors();
        EXPECT_NE(Errors().find("Die Anlage kann nicht geladen werden"), std::string::npos);
        EXPECT_NE(Errors().find("Prozedur: "), std::string::npos);
    }
}

TEST_F(Hardening, ALoadStoppedByAHintSaysWhyInAnError) {
    EXPECT_FALSE(Load(test::LayoutText("<Notiz><!-- Kommentar --></Notiz>")));
    ASSERT_EQ(scope.ui.errors.size(), 1u);
    EXPECT_NE(Errors().find("kann nicht geladen werden"), std::string::npos);
    EXPECT_NE(Errors().find("Unerwarteter Eintrag"), std::string::npos) << Errors();
}

TEST_F(Hardening, UnusualTrackSystemNumbersAndDocumentElements) {
    ASSERT_TRUE(Load(test::LayoutText("<Gleissystem GleissystemID=\"3\" TrackSystemNumber=\"70000\"/>"
                                      "<Gleissystem GleissystemID=\"4\" TrackSystemNumber=\"-1e300\"/>")));
    CLayoutStatistics statistics(anlage);
    std::string names;
    for (const auto& system : statistics.TrackSystems())
        names += system.name + ";";
    EXPECT_NE(names.find("Gleissystem 70000;"), std::string::npos) << names;
    EXPECT_NE(names.find("Gleissystem -2147483648;"), std::string::npos) << names;

    std::string other = test::LayoutText();
    other.replace(other.find("<sutrackp>"), 10, "<anlage>");
    other.replace(other.find("</sutrackp>"), 11, "</anlage>");
    ASSERT_TRUE(Load(other));
    EXPECT_NE(Hints().find("Das Dokument-Element der Datei heißt 'anlage' und nicht 'sutrackp'"),
              std::string::npos);
    EXPECT_EQ(test::OwnedNumberDifference(other, SaveTwice()), "");
}

} // namespace

namespace {

// What the parser lets pass unseen around the document element (text, a second element) is
// refused as a conforming parser refuses it, with the place; the declaration stays as read.
TEST_F(Hardening, WhatStandsAroundTheDocumentElementIsCheckedAsAWhole) {
    const std::string declaration = "<?xml version=\"1.0\" encoding='a\"b'?>";
    std::string layout = test::LayoutText();
    layout.replace(0, layout.find("?>") + 2, declaration);
    struct Case {
        std::string text;
        bool loads;
    };
    // A chapter holding an element of its own name, so that its first end tag is not its own.
    std::string uncuttable = layout;
    uncuttable.replace(uncuttable.find("<Options/>"), 10, "<Options><Options>x</Options></Options>");
    const Case cases[] = {
        {uncuttable, true},
        {uncuttable.substr(0, uncuttable.size() - 1) + "Rest\n", false},
        {uncuttable.substr(0, uncuttable.size() - 1) + "<zweite/>\n", false},
        {declaration + "\nText vorher" + uncuttable.substr(declaration.size()), false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Load(c.text), c.loads) << Errors();
        if (!c.loads) {
            EXPECT_NE(Errors().find("Vor oder nach dem Dokument-Element steht etwas anderes"),
                      std::string::npos)
                << Errors();
            continue;
        }
        std::string saved = SaveTwice();
        EXPECT_EQ(saved.substr(0, saved.find('\n')), declaration);
        EXPECT_EQ(test::OwnedNumberDifference(c.text, saved), "");
    }
}

} // namespace
