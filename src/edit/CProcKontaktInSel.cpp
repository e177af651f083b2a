#include "edit/CProcKontaktInSel.h"

#include <algorithm>
#include <vector>

#include "nodes/CCast.h"
#include "nodes/CIterKontakt.h"
#include "nodes/CIterMeldung.h"
#include "nodes/CNodeGleis.h"

namespace kavrin {

bool CProcKontaktInSel::Start() {
    keyIds_.RemoveAll();
    keyIds_.Size(200, 200);
    return true;
}

bool CProcKontaktInSel::Process(INode*& node, int32_t) {
    CNodeGleis& track = CCast::Required(CCast::NodeGleis(node));
    if (!track.Selected())
        return true;
    CIterMeldung signals;
    for (signals.Walk(track); signals.HasNext();)
        if (int32_t keyId = CCast::NodeMeldung(signals.GetNext())->KeyId(); keyId > 0)
            keyIds_.Add(keyId);
    CIterKontakt contacts;
    for (contacts.Walk(track); contacts.HasNext();)
        if (int32_t keyId = CCast::NodeKontakt(contacts.GetNext())->SignalDataKeyId(); keyId > 0)
            keyIds_.Add(keyId);
    return true;
}

bool CProcKontaktInSel::Finish() {
    std::vector<int32_t> values;
    values.reserve(static_cast<size_t>(keyIds_.Count()));
    for (int32_t i = keyIds_.FirstIndex(); i <= keyIds_.LastIndex(); ++i)
        values.push_back(keyIds_.Item(i));
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
    keyIds_.Clear();
    for (int32_t value : values)
        keyIds_.Add(value);
    return true;
}

} // namespace kavrin
