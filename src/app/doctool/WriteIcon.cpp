// Writes the program's icon as a PNG of the given size, for the desktop's icon folders.

#include <QGuiApplication>
#include <QPixmap>
#include <cstdio>

#include "app/CAppIcon.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "Aufruf: kavrin-writeicon GRÖSSE BILD.png\n");
        return 2;
    }
    QGuiApplication app(argc, argv);
    const int size = QString::fromLocal8Bit(argv[1]).toInt();
    if (size < 16 || size > 1024 ||
        !kavrin::CAppIcon::Pixmap(size).save(QString::fromLocal8Bit(argv[2]), "PNG")) {
        std::fprintf(stderr, "Das Symbol konnte nicht geschrieben werden.\n");
        return 1;
    }
    return 0;
}
