#pragma once

#include <QObject>
#include <QPointF>
#include <optional>

#include "nodes/CRect.h"

class QComboBox;
class QScrollBar;
class QTimer;

namespace kavrin {

class CAnlage;
class CPlanCommands;
class CPlanView;
class CPlanWidget;

// Where the plan window looks and how the user moves it: the zoom box (steps, the factor between
// them, typed factors), the zoom commands, the scroll bars, the wheel, pinch, keys and drags of
// the plan, and fitting the view to the layout's content. A view fitted to the content stays
// fitted through resizes until the user moves or zooms it. Every change ends in RescalePlan.
class CPlanNavigator : public QObject {
    Q_OBJECT
public:
    CPlanNavigator(const CAnlage& anlage, CPlanView& view, CPlanWidget& plan, CPlanCommands& commands,
                   QScrollBar& horizontal, QScrollBar& vertical, QObject* parent);

    // The zoom box's entries after the layout's extent is known.
    void FillZoomBox();
    // The next or previous entry of the zoom box, or back to the whole layout.
    void ZoomIn();
    void ZoomOut();
    void World();
    // Shows all of the layout's content ("Auf Inhalt zoomen"), as the window opens.
    void ZoomToContent();
    // Shows a part of the layout as large as the window allows ("Auf Auswahl zoomen"); stays
    // fitted to it through resizes as the content does.
    void ZoomToBox(const CRect& world);
    // Centres the plan on a world point at a zoom step that shows about 80 m around it.
    void ShowPlace(double x, double y);
    // Fits the plan to its picture's size, updates the scroll bars and draws anew.
    void RescalePlan();
    // Forgets a drawing that waits for resizes to end (the window closes).
    void CancelRescale();
    void UpdateScrollBars();

private:
    void Connect();
    // Brings the zoom box in line with the factor: its entry, or the factor as text between steps.
    void ShowZoom();
    void ZoomSelected(int index);
    void ZoomTyped();
    void ZoomAtMouse(double multiplier, QPointF position);
    void ScrollPlan(QPointF pixels);
    // Fits the view to the content found last, or to the whole layout when there is none.
    bool FitView();
    void UpdateZoomCommands();

    const CAnlage& anlage_;
    CPlanView& view_;
    CPlanWidget& plan_;
    CPlanCommands& commands_;
    QComboBox& zoomBox_;
    QScrollBar& horizontal_;
    QScrollBar& vertical_;
    QTimer* paintTimer_;
    bool fitContent_ = false;
    std::optional<CRect> content_;
};

} // namespace kavrin
