#pragma once

#include <stdexcept>
#include <string>

namespace kavrin {

// A failure with the number and description the error report shows ("Fehler 6: Überlauf").
// Thrown inside a procedure and caught at its boundary, never across a public member.
class CError : public std::runtime_error {
public:
    CError(int number, std::string description);

    int Number() const { return number_; }
    const std::string& Description() const { return description_; }

    static CError Overflow();
    static CError TypeMismatch();
    static CError SubscriptOutOfRange();
    static CError ObjectNotSet();
    static CError FileAccess(const std::string& detail);

    // Turns whatever is being handled in a catch block into a CError.
    static CError FromCurrentException();

private:
    int number_;
    std::string description_;
};

} // namespace kavrin
