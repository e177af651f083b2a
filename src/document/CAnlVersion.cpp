#include "document/CAnlVersion.h"

#include <array>

#include "core/modTools.h"

namespace kavrin {

namespace {
const std::array<std::string, 5> kLabels = {"???", "2.4x", "3", "4", "5"};
}

void CAnlVersion::Clear() {
    labelIndex_ = 0;
    fileVersion_.clear();
}

void CAnlVersion::Report(const std::string& label) {
    for (int i = 0; i < static_cast<int>(kLabels.size()); ++i)
        if (kLabels[static_cast<size_t>(i)] == label && i > labelIndex_)
            labelIndex_ = i;
}

const std::string& CAnlVersion::Label() const {
    return kLabels[static_cast<size_t>(labelIndex_)];
}

std::string CAnlVersion::Text() const {
    if (fileVersion_.empty())
        return Label();
    if (labelIndex_ == 0)
        return FormatMessage("EEP %1", fileVersion_);
    return FormatMessage("%1 (EEP %2)", Label(), fileVersion_);
}

} // namespace kavrin
