// Turns the HTML source of the short guide into the PDF that ships next to the program.
// Run at build time (without a display: QT_QPA_PLATFORM=offscreen).

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextDocument>
#include <QUrl>
#include <cstdio>

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 4) {
        std::fprintf(stderr, "Aufruf: kavrin-htmltopdf QUELLE.html ZIEL.pdf TITEL\n");
        return 2;
    }
    QFile source(QString::fromLocal8Bit(argv[1]));
    if (!source.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "Kann %s nicht lesen.\n", argv[1]);
        return 1;
    }
    QTextDocument document;
    document.setBaseUrl(QUrl::fromLocalFile(QFileInfo(source).absolutePath() + QLatin1Char('/')));
    document.setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    document.setHtml(QString::fromUtf8(source.readAll()));

    QPdfWriter writer(QString::fromLocal8Bit(argv[2]));
    writer.setTitle(QString::fromUtf8(argv[3]));
    writer.setCreator(QStringLiteral("Kavrin"));
    writer.setResolution(300);
    // QTextDocument::print adds margins of its own (2 cm); the page keeps only a thin edge.
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(2, 4, 2, 4),
                                     QPageLayout::Millimeter));
    document.print(&writer);
    return 0;
}
