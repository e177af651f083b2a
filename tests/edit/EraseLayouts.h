#pragma once

#include <string>

#include "EditLayouts.h"

namespace kavrin::test {

// A classic track with children after its characteristic (contacts, signals) and, when
// `target` is not negative, a contact target of its own (a switch).
inline std::string TrackWith(int id, double x, const std::string& marks, int target = -1,
                             const std::string& extra = "") {
    std::string track = ClassicTrack(id, x, 0, 1000);
    size_t open = track.find('>');
    if (!extra.empty())
        track.insert(open, " " + extra), open = track.find('>');
    if (target >= 0)
        track.insert(open + 1, "<KontaktZiel>" + std::to_string(target) + "</KontaktZiel>");
    track.insert(track.rfind("</Gleis>"), marks);
    return track;
}

inline std::string Contact(int kind, int target, int value = 0) {
    return "<Kontakt Position=\"10\" SetType=\"" + std::to_string(kind) + "\" SetValue=\"" +
           std::to_string(value) + "\" KontaktZiel=\"" + std::to_string(target) + "\"/>";
}

// A signal with its contact target and the trains waiting at it ("F1Z2" ...).
inline std::string Signal(const std::string& name, int keyId, int target, const std::string& waiting = "") {
    return "<Meldung Position=\"20\" name=\"" + name + "\" Key_Id=\"" + std::to_string(keyId) +
           "\"><KontaktZiel>" + std::to_string(target) + "</KontaktZiel><Signal stellung=\"1\">" + waiting +
           "</Signal></Meldung>";
}

inline std::string Waiting(int pool, int train) {
    return "<Wartender fuhrparkID=\"" + std::to_string(pool) + "\" zugverbandID=\"" + std::to_string(train) +
           "\" sollgeschwindigkeit=\"1\"/>";
}

inline std::string Train(int id, int system, int track) {
    return "<Zugverband ZugID=\"" + std::to_string(id) + "\" name=\"#Zug " + std::to_string(id) +
           "\"><Gleisort gleissystemID=\"" + std::to_string(system) + "\" gleisID=\"" +
           std::to_string(track) +
           "\" parameter=\"1\" ausrichtung=\"1\"/><Rollmaterial name=\"Lok\"/><Rollmaterial name=\"Wagen\"/>"
           "</Zugverband>";
}

// Two track systems with switches, signals, waiting trains, contacts of every kind that refers
// to something, trains on tracks (one on a track of the other system with the same id), a
// building switched by contacts, a track object with its collector, a locked building, goods and
// a timetable naming a signal twice.
//   system 1: 1 - 2 (switch, target 7) - 3 (signal "Hp", key 5, target 8, trains F1Z1 and F1Z3
//             waiting) - 4 (key -3); track 1 holds contacts on 7, 8, a building contact (768 on
//             ImmoIdx 3), a DKW contact (1024 on 4), a camera contact, a contact on target 99
//             that never existed; track 4 holds a signal without a name (key 6).
//   system 2: 3, 5 (signal "Hp", key 9, target 10); track 3 holds contacts on 10 and 99; track 5
//             and a vehicle contact on it carry signal data naming key 5.
//   trains: F1Z1 on 1/3, F1Z2 on 2/3, F1Z3 on 1/4.
inline std::string EraseLayout() {
    std::string system1 = "<Gleissystem GleissystemID=\"1\" TrackSystemNumber=\"1\">" +
                          TrackWith(1, 0,
                                    Contact(0, 7) + Contact(0, 8) + Contact(768, 0, 3) + Contact(1024, 0, 4) +
                                        Contact(512, 0, 2) + Contact(0, 99)) +
                          TrackWith(2, 1000, "", 7, "Key_Id=\"4\"") +
                          TrackWith(3, 2000, Signal("Hp", 5, 8, Waiting(1, 1) + Waiting(1, 3))) +
                          TrackWith(4, 3000, Signal("", 6, 0), -1, "Key_Id=\"-3\"") +
                          Connection(1, "Ende", 2, "Anfang") + Connection(2, "Ende", 3, "Anfang") +
                          Connection(3, "Ende", 4, "Anfang") + "</Gleissystem>";
    std::string system2 =
        "<Gleissystem GleissystemID=\"2\" TrackSystemNumber=\"2\">" +
        TrackWith(3, 0, Contact(0, 10) + Contact(0, 99)) +
        TrackWith(5, 1000,
                  Signal("Hp", 9, 10) + "<Kontakt Position=\"30\" SetType=\"1\" SignalData=\"65541\"/>", -1,
                  "SignalData=\"5\"") +
        Connection(3, "Ende", 5, "Anfang") + "</Gleissystem>";
    std::string kollektor =
        "<Kollektor id=\"9\">" + FrameText("0", "0") +
        "<Gleis gleisID=\"4\" gleissystemID=\"1\"/><Gleis gleisID=\"5\" gleissystemID=\"2\"/>"
        "</Kollektor>";
    std::string buildings =
        "<Gebaeudesammlung GebaudesammlungID=\"1\"><Immobile gsbname=\"\\Gleisobjekte\\Weiche.3dm\" "
        "ImmoIdx=\"1\" "
        "kollektorID=\"9\">" +
        FrameText("3000", "0") +
        "</Immobile></Gebaeudesammlung><Gebaeudesammlung GebaudesammlungID=\"4\">"
        "<Immobile gsbname=\"\\Immobilien\\Haus.3dm\" ImmoIdx=\"3\">" +
        FrameText("500", "500") +
        "</Immobile><Immobile gsbname=\"\\Immobilien\\Tor.3dm\" ImmoIdx=\"4\" LockEd=\"1\">" +
        FrameText("600", "500") + "</Immobile></Gebaeudesammlung>";
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<sutrackp><Version EEP=\"15\"/>" + system1 + system2 +
           kollektor + "<Fuhrpark FuhrparkID=\"1\">" + Train(1, 1, 3) + Train(2, 2, 3) + Train(3, 1, 4) +
           "</Fuhrpark>" + buildings + "<Goods count=\"2\">" + Good(100, 100) + Good(200, 200) +
           "</Goods><Kammerasammlung/><Settings/><Options/><Weather/>"
           "<TimeTable TimeTableItems=\"3\"><Eintrag Key_Id=\"5\"/><Eintrag Key_Id=\"5\" Zeit=\"2\"/>"
           "<Eintrag Key_Id=\"9\"/></TimeTable>"
           "<Schandlaft extX=\"75\" extY=\"75\" posX=\"-25000\" posY=\"-25000\" dichte=\"1.5E-03\" "
           "HoehenFile=\"\\aH.bmp\"/><Beschreibung/></sutrackp>\n";
}

} // namespace kavrin::test
