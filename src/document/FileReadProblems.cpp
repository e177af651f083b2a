#include "document/FileReadProblems.h"

#include <cerrno>

#include "core/modTools.h"

namespace kavrin {

std::string KindProblem(const std::string& path, FileKind kind) {
    switch (kind) {
    case FileKind::Regular:
        return {};
    case FileKind::Directory:
        return FormatMessage("%1%nist ein Ordner und keine Anlagen-Datei.", path);
    case FileKind::Fifo:
        return FormatMessage("%1%nist eine benannte Pipe (FIFO) und keine Anlagen-Datei.", path);
    case FileKind::Device:
        return FormatMessage("%1%nist ein Gerät und keine Anlagen-Datei.", path);
    case FileKind::Socket:
        return FormatMessage("%1%nist ein Socket und keine Anlagen-Datei.", path);
    case FileKind::Other:
        break;
    }
    return FormatMessage("%1%nist keine gewöhnliche Datei und keine Anlagen-Datei.", path);
}

std::string OpenProblem(const std::string& path, int error, bool statWorked) {
    switch (error) {
    case ENOENT:
        return FormatMessage("Die Datei%n%1%nexistiert nicht.", path);
    case EACCES:
    case EPERM:
        return statWorked
                   ? FormatMessage("Die Datei%n%1%ndarf nicht gelesen werden: es fehlt die Leseberechtigung.",
                                   path)
                   : FormatMessage("Die Datei%n%1%nist nicht erreichbar: für einen ihrer Ordner fehlt die "
                                   "Berechtigung.",
                                   path);
    case EBUSY:
        return FormatMessage(
            "Die Datei%n%1%nkann nicht gelesen werden: ein anderes Programm hat sie gesperrt.", path);
    case ENOMEM:
        return FormatMessage("Für das Laden der Datei%n%1%nreicht der Arbeitsspeicher nicht.", path);
    default:
        return FormatMessage("Die Datei%n%1%nkann nicht gelesen werden:%n%2", path, SystemErrorText(error));
    }
}

} // namespace kavrin
