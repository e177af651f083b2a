#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kavrin {

class CAnlage;
class CNodeBase;
class CNodeMeldung;
class INode;

// The traffic chapters of a layout have no node classes of their own; these read what the
// editor needs of them from their kept attributes and children.

// A train as a waiting-train record names it: "F%1Z%2" with the vehicle pool's id
// ("FuhrparkID") and the train's id ("ZugID").
std::string TrainKey(int32_t fuhrparkId, int32_t zugId);
// The key of a train ("Zugverband") in its vehicle pool; empty when an id is missing.
std::string TrainKeyOf(const INode& zugverband);
// The key a waiting-train record ("Wartender", attributes "fuhrparkID", "zugverbandID") names.
std::string WaitingTrainKey(const INode& wartender);
// A train's display name ("name"), or its key when it has none.
std::string TrainName(const INode& zugverband);
// The number of vehicles ("Rollmaterial") of a train.
int32_t TrainVehicleCount(const INode& zugverband);

// The chapters of that element name, in file order.
std::vector<CNodeBase*> Chapters(const CAnlage& anlage, std::string_view name);
// The timetable chapter ("TimeTable"), or null.
CNodeBase* FindTimeTable(const CAnlage& anlage);
// The signal part ("Signal") of a signal message, or null; it holds the waiting-train records.
CNodeBase* SignalPartOf(const CNodeMeldung& meldung);
// A whole-number attribute; `fallback` when it is missing or not a number.
int32_t IntAttribute(const INode& node, std::string_view name, int32_t fallback = 0);

} // namespace kavrin
