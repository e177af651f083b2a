#pragma once

#include <QDialog>
#include <string>

class QTextBrowser;

namespace kavrin {

// A help file shown inside Kavrin, read-only: the change list ("Was ist neu?") as plain text,
// the short guide as HTML when no PDF viewer is there. Not modal, so that the user can read
// it beside the plan; links to web pages open in the browser.
class FHelpText : public QDialog {
    Q_OBJECT
public:
    FHelpText(const std::string& title, QWidget* parent = nullptr);

    // Shows the file (HTML when its name ends in .html); false when it cannot be read.
    bool ShowFile(const std::string& path);
    QString Text() const;

private:
    QTextBrowser* text_;
};

} // namespace kavrin
