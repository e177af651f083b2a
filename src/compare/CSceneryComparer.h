#pragma once

#include "compare/CDiffCollector.h"

namespace kavrin {

class CAnlage;
class CNodeGood;
class CNodeImmobilie;
class CNodeKollektor;

// Buildings and landscape elements by their ImmoIdx, goods by model and place (the goods list
// carries no ids: an item that kept its model and place is the same item, one of a model that
// moved pairs with the next of that model), collectors by id.
class CSceneryComparer {
public:
    CSceneryComparer(const CAnlage& alt, const CAnlage& neu, CDiffCollector& out)
        : alt_(alt), neu_(neu), out_(out) {}
    void Run();

    static CDiffCollector::Object BuildingObject(const CNodeImmobilie& building);
    static CDiffCollector::Object GoodObject(const CNodeGood& good, int number);
    static CDiffCollector::Object KollektorObject(const CNodeKollektor& kollektor);

private:
    void CompareBuildings();
    void CompareGoods();
    void CompareKollektors();

    const CAnlage& alt_;
    const CAnlage& neu_;
    CDiffCollector& out_;
};

} // namespace kavrin
