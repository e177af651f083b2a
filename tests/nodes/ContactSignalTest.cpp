#include <gtest/gtest.h>

#include <algorithm>

#include "SceneryLayoutFixture.h"
#include "core/CStringPack.h"
#include "document/CXmlWriter.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"

using namespace kavrin;
using test::FrameText;
using test::Written;

namespace {

class ContactSignal : public test::SceneryLayoutFixture {
protected:
    // A straight classic track of the given length in track system 1 (Eisenbahn) holding `items`.
    static std::string Track(const std::string& items, const std::string& laenge = "100", int id = 7) {
        return "<Gleissystem GleissystemID=\"1\"><Gleis GleisID=\"" + std::to_string(id) +
               "\" clsid=\"2E25C8E2-5FE4-4B9A-ABAF-17E3A1C60C34\">" + FrameText("0", "0") +
               "<Anfangsfuehrungsverdrehung Wert=\"0\"/><Charakteristik Kruemmung=\"0\" Torsion=\"0\" "
               "Fuehrungsverdrehung=\"0\" Laenge=\"" +
               laenge + "\"/>" + items + "</Gleis></Gleissystem>";
    }
    static std::string Contact(const std::string& attributes) { return "<Kontakt " + attributes + "/>"; }
    bool LoadTrack(const std::string& items, const std::string& laenge = "100") {
        // The layout text's own (empty) track system comes after this one.
        return LoadInner(Track(items, laenge));
    }
};

TEST_F(ContactSignal, SignalDataIsSplitIntoLowAndHighPart) {
    struct Case {
        std::string read;
        int32_t low;
        int32_t high;
    };
    // Negative values do not come back from their parts unchanged: those two get a hint and are
    // written as read until their parts change.
    const Case cases[] = {
        {"131077", 5, 2},           {"-1", 65535, 0}, {"-65537", 65535, -1}, {"-131072", 0, -2},
        {"196608", 0, 3},           {"0", 0, 0},      {"65535", 65535, 0},   {"2147483647", 65535, 32767},
        {"-2147483648", 0, -32768},
    };
    std::string contacts;
    for (const Case& c : cases)
        contacts += Contact("Position=\"1\" SignalData=\"" + c.read + "\" LuaFn=\"\"");
    ASSERT_TRUE(LoadTrack(contacts));
    EXPECT_EQ(scope.ui.parseLog.Hints().size(), 2u);
    std::vector<CNodeKontakt*> read = Nodes<CNodeKontakt>();
    ASSERT_EQ(read.size(), std::size(cases));
    for (size_t i = 0; i < read.size(); ++i) {
        const Case& c = cases[i];
        EXPECT_EQ(read[i]->SignalDataLow(), c.low) << c.read;
        EXPECT_EQ(read[i]->SignalDataHigh(), c.high) << c.read;
        EXPECT_EQ(Written(*read[i]), "<Kontakt Position=\"1\" SignalData=\"" + c.read + "\" LuaFn=\"\"/>");
    }
    // Once a part is edited, the value the parts make is written.
    read[2]->SetSignalDataHigh(3);
    EXPECT_EQ(Written(*read[2]), "<Kontakt Position=\"1\" SignalData=\"262143\" LuaFn=\"\"/>");
}

// Parts set beyond what 32 bits hold are refused when the contact is written, not wrapped round.
TEST_F(ContactSignal, SignalDataOverflowFailsTheWrite) {
    ASSERT_TRUE(LoadTrack(Contact("SignalData=\"1\"")));
    CNodeKontakt& contact = Single<CNodeKontakt>();
    contact.SetSignalDataHigh(32768);
    CXmlWriter writer;
    EXPECT_FALSE(WriteNode(writer, contact));
    ASSERT_EQ(scope.ui.errors.size(), 1u);
    EXPECT_NE(scope.ui.errors[0].find("Prozedur: CNodeKontakt.INode_XmlAttributes"), std::string::npos);
    EXPECT_NE(scope.ui.errors[0].find("Fehler 6"), std::string::npos);
}

TEST_F(ContactSignal, ContactKeepsItsValuesAndAttributeOrder) {
    const std::string contact =
        "<Kontakt Position=\"5833.56\" ParaOderAnti=\"1\" SetType=\"768\" SetValue=\"12\" "
        "KontaktZiel=\"-1\" Light=\"2\" ConnectF=\"2\" clsid=\"ABC-1\" SignalData=\"0\" "
        "TipTxt=\"&lt;b&gt;a\nb&lt;/b&gt;\" LastOfs=\"5827.873\"/>";
    ASSERT_TRUE(LoadTrack(contact, "6000"));
    const CNodeKontakt& read = Single<CNodeKontakt>();
    EXPECT_DOUBLE_EQ(read.Position(), 5833.56);
    EXPECT_EQ(read.SetType(), 768);
    EXPECT_EQ(read.SetValue(), 12);
    EXPECT_EQ(read.KontaktZiel(), -1);
    EXPECT_EQ(read.ConnectF(), 2);
    EXPECT_EQ(read.ClsID(), "ABC-1");
    EXPECT_EQ(ClassTexts().GetIndex("ABC-1"), read.ClsIdIndex());
    EXPECT_NE(Save().find(contact), std::string::npos);
}

TEST_F(ContactSignal, PositionsBeyondTheTrackEndAreCorrectedOnce) {
    struct Case {
        std::string position;
        bool corrected;
    };
    const Case cases[] = {{"100", false},     {"99.99", false}, {"0", false},
                          {"100.0001", true}, {"100.5", true},  {"1E+07", true}};
    for (const Case& c : cases) {
        scope.ui.parseLog.Open(path);
        ASSERT_TRUE(LoadTrack(Contact("Position=\"" + c.position + "\" SetType=\"1\""))) << c.position;
        const CNodeKontakt& contact = Single<CNodeKontakt>();
        const std::string hint = "Kontakt-Position am Gleis 7 (Eisenbahn) korrigiert.";
        long reported = std::count(Hints().begin(), Hints().end(), hint);
        EXPECT_EQ(reported, c.corrected ? 1 : 0) << c.position;
        EXPECT_EQ(anlage.ChangedWhileLoading(), c.corrected) << c.position;
        EXPECT_EQ(anlage.Changed(), c.corrected) << c.position;
        if (c.corrected) {
            EXPECT_DOUBLE_EQ(contact.Position(), 100);
            EXPECT_NE(Save().find("<Kontakt Position=\"100\" SetType=\"1\"/>"), std::string::npos);
        } else {
            EXPECT_DOUBLE_EQ(contact.Position(), TextToNumber(c.position));
        }
    }
}

TEST_F(ContactSignal, SignalPositionBeyondTheTrackEndIsCorrected) {
    const std::string signal = "<Meldung Position=\"120\" clsid=\"S\" name=\"Ampel\" Key_Id=\"11\"/>";
    ASSERT_TRUE(LoadTrack(signal));
    EXPECT_EQ(
        std::count(Hints().begin(), Hints().end(), "Signal 11: Vorsignal-Position am Gleis korrigiert."), 1);
    EXPECT_TRUE(anlage.ChangedWhileLoading());
    EXPECT_NE(Save().find("<Meldung Position=\"100\" clsid=\"S\" name=\"Ampel\" Key_Id=\"11\"/>"),
              std::string::npos);

    scope.ui.parseLog.Open(path);
    ASSERT_TRUE(LoadTrack("<Meldung Position=\"100\" Key_Id=\"11\"/>"));
    EXPECT_TRUE(Hints().empty());
    EXPECT_FALSE(anlage.ChangedWhileLoading());
}

// A track whose length is unknown (no characteristic, or none read yet) gives no limit, and
// point objects outside a track are not checked at all.
TEST_F(ContactSignal, PositionsWithoutAKnownTrackLengthAreKept) {
    const std::string cases[] = {
        "<Gleissystem GleissystemID=\"1\"><Gleis GleisID=\"3\"><Kontakt Position=\"50\"/>"
        "<Meldung Position=\"60\"/></Gleis></Gleissystem>",
        "<Fremd><Kontakt Position=\"50\"/><Meldung Position=\"60\"/></Fremd>",
    };
    for (const std::string& inner : cases) {
        scope.ui.parseLog.Open(path);
        ASSERT_TRUE(LoadInner(inner));
        EXPECT_TRUE(Hints().empty()) << inner;
        EXPECT_FALSE(anlage.ChangedWhileLoading());
        EXPECT_DOUBLE_EQ(Single<CNodeKontakt>().Position(), 50);
        EXPECT_DOUBLE_EQ(Single<CNodeMeldung>().Position(), 60);
    }
}

TEST_F(ContactSignal, SignalContactTargetIsWrittenInItsPlaceAndOnlyWhenSet) {
    struct Case {
        std::string children;
        int32_t target;
        std::string written;
        bool registered;
    };
    const Case cases[] = {
        {"", -1, "<Meldung Position=\"5\" name=\"A\"></Meldung>", false},
        {"<Signal a=\"1\"/>", -1, "<Meldung Position=\"5\" name=\"A\"><Signal a=\"1\"/></Meldung>", false},
        {"<KontaktZiel>0</KontaktZiel><Signal/>", 0,
         "<Meldung Position=\"5\" name=\"A\"><KontaktZiel>0</KontaktZiel><Signal/></Meldung>", false},
        // Read after the signal: written where it stood.
        {"<Signal/><KontaktZiel>12</KontaktZiel>", 12,
         "<Meldung Position=\"5\" name=\"A\"><Signal/><KontaktZiel>12</KontaktZiel></Meldung>", true},
        {"<KontaktZiel>-1</KontaktZiel>", -1, "<Meldung Position=\"5\" name=\"A\"/>", false},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(LoadTrack("<Meldung Position=\"5\" name=\"A\">" + c.children + "</Meldung>"))
            << c.children;
        const CNodeMeldung& signal = Single<CNodeMeldung>();
        EXPECT_EQ(signal.KontaktZiel(), c.target) << c.children;
        const std::vector<int32_t>& targets = anlage.KontaktZiele();
        EXPECT_EQ(std::find(targets.begin(), targets.end(), c.target) != targets.end(), c.registered);
        std::string saved = Save();
        EXPECT_NE(saved.find(c.written), std::string::npos) << c.children << "\n" << saved;
    }
}

TEST_F(ContactSignal, SignalValuesAreRead) {
    ASSERT_TRUE(
        LoadTrack("<Meldung Position=\"3873.333\" ParaOderAnti=\"0\" clsid=\"D180F669\" name=\"signal_1\" "
                  "Key_Id=\"11\" Hofs=\"120\"><KontaktZiel>4</KontaktZiel></Meldung>",
                  "5000"));
    const CNodeMeldung& signal = Single<CNodeMeldung>();
    EXPECT_DOUBLE_EQ(signal.Position(), 3873.333);
    EXPECT_EQ(signal.ParaOderAnti(), 0);
    EXPECT_EQ(signal.ClsID(), "D180F669");
    EXPECT_EQ(signal.SignalName(), "signal_1");
    EXPECT_EQ(signal.KeyId(), 11);
    EXPECT_EQ(signal.KontaktZiel(), 4);
    EXPECT_TRUE(signal.SubNodes().Count() == 0); // the target child is consumed
}

TEST_F(ContactSignal, NameSetOnASignalReadWithoutOneIsWritten) {
    ASSERT_TRUE(LoadTrack("<Meldung Position=\"5\" Key_Id=\"2\"/><Meldung name=\"alt\" Key_Id=\"3\"/>"));
    std::vector<CNodeMeldung*> signals = Nodes<CNodeMeldung>();
    ASSERT_EQ(signals.size(), 2u);
    signals[0]->SetSignalName("Neu & \"X\"");
    EXPECT_EQ(Written(*signals[0]), "<Meldung Position=\"5\" Key_Id=\"2\"/>");
    signals[0]->AddAttrName();
    signals[0]->AddAttrName();
    EXPECT_EQ(Written(*signals[0]),
              "<Meldung Position=\"5\" Key_Id=\"2\" name=\"Neu &amp; &quot;X&quot;\"/>");
    signals[1]->SetSignalName("neu");
    signals[1]->AddAttrName();
    EXPECT_EQ(Written(*signals[1]), "<Meldung name=\"neu\" Key_Id=\"3\"/>");
}

TEST_F(ContactSignal, NonNumericValuesFailTheLoadWithTheProcedureNamed) {
    struct Case {
        std::string item;
        std::string procedure;
        std::string error;
    };
    const Case cases[] = {
        {Contact("Position=\"1\" SetType=\"Fahrzeug\""), "CNodeKontakt.INode_ParseAttributes", "Fehler 13"},
        {Contact("SetValue=\"1x\""), "CNodeKontakt.INode_ParseAttributes", "Fehler 13"},
        {Contact("SignalData=\"\""), "CNodeKontakt.INode_ParseAttributes", "Fehler 13"},
        {Contact("KontaktZiel=\"ziel\""), "CNodeKontakt.INode_ParseAttributes", "Fehler 13"},
        {Contact("ConnectF=\"3000000000\""), "CNodeKontakt.INode_ParseAttributes", "Fehler 6"},
        {"<Meldung Key_Id=\"elf\"/>", "CNodeMeldung.INode_ParseAttributes", "Fehler 13"},
        {"<Meldung ParaOderAnti=\"40000\"/>", "CNodeMeldung.INode_ParseAttributes", "Fehler 6"},
        {"<Meldung><KontaktZiel>zwei</KontaktZiel></Meldung>", "CNodeMeldung.INode_AddChild", "Fehler 13"},
    };
    for (const Case& c : cases) {
        scope.ui.errors.clear();
        EXPECT_FALSE(LoadTrack(c.item)) << c.item;
        EXPECT_EQ(anlage.RootNode(), nullptr);
        ASSERT_EQ(scope.ui.errors.size(), 1u) << c.item;
        EXPECT_NE(scope.ui.errors[0].find("Prozedur: " + c.procedure), std::string::npos)
            << scope.ui.errors[0];
        EXPECT_NE(scope.ui.errors[0].find(c.error), std::string::npos) << scope.ui.errors[0];
    }
}

TEST_F(ContactSignal, CopiesAreIndependentOfTheOriginal) {
    const std::string contact =
        "<Kontakt Position=\"12.5\" KontaktZiel=\"3\" SetType=\"0\" SignalData=\"-65537\" "
        "clsid=\"K\" zuStellung=\"1\"/>";
    const std::string signal =
        "<Meldung Position=\"40\" clsid=\"S\" name=\"Hp\" Key_Id=\"9\" ParaOderAnti=\"1\">"
        "<KontaktZiel>3</KontaktZiel><Signal stellung=\"1\"/></Meldung>";
    ASSERT_TRUE(LoadTrack(contact + signal));
    CNodeKontakt& originalContact = Single<CNodeKontakt>();
    CNodeMeldung& originalSignal = Single<CNodeMeldung>();
    const std::string contactText = Written(originalContact);
    const std::string signalText = Written(originalSignal);

    std::unique_ptr<INode> contactCopy = originalContact.Clone();
    std::unique_ptr<INode> signalCopy = originalSignal.Clone();
    EXPECT_EQ(Written(*contactCopy), contactText);
    EXPECT_EQ(Written(*signalCopy), signalText);

    auto& copiedContact = dynamic_cast<CNodeKontakt&>(*contactCopy);
    auto& copiedSignal = dynamic_cast<CNodeMeldung&>(*signalCopy);
    copiedContact.SetPosition(1);
    copiedSignal.SetKontaktZiel(-1);
    copiedSignal.SetKeyId(10);
    EXPECT_EQ(Written(originalContact), contactText);
    EXPECT_EQ(Written(originalSignal), signalText);
    EXPECT_EQ(Written(copiedSignal),
              "<Meldung Position=\"40\" clsid=\"S\" name=\"Hp\" Key_Id=\"10\" ParaOderAnti=\"1\">"
              "<Signal stellung=\"1\"/></Meldung>");
}

} // namespace
