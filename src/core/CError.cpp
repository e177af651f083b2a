#include "core/CError.h"

#include <new>

namespace kavrin {

CError::CError(int number, std::string description)
    : std::runtime_error(description), number_(number), description_(std::move(description)) {}

CError CError::Overflow() {
    return CError(6, "Überlauf");
}

CError CError::TypeMismatch() {
    return CError(13, "Typen unverträglich");
}

CError CError::SubscriptOutOfRange() {
    return CError(9, "Index außerhalb des gültigen Bereichs");
}

CError CError::ObjectNotSet() {
    return CError(91, "Objektvariable oder With-Blockvariable nicht festgelegt");
}

CError CError::FileAccess(const std::string& detail) {
    return CError(75, "Fehler beim Zugriff auf Pfad/Datei: " + detail);
}

CError CError::FromCurrentException() {
    try {
        throw;
    } catch (const CError& e) {
        return e;
    } catch (const std::bad_alloc&) {
        return CError(7, "Nicht genügend Speicher");
    } catch (const std::exception& e) {
        return CError(51, std::string("Interner Fehler: ") + e.what());
    } catch (...) {
        return CError(51, "Interner Fehler");
    }
}

} // namespace kavrin
