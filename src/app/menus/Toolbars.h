#pragma once

#include <QObject>
#include <QRect>
#include <array>
#include <string>
#include <string_view>

#include "app/menus/BandRows.h"
#include "app/menus/ToolbarTable.h"

class QAction;
class QMainWindow;
class QToolBar;

namespace klt {

class Store;

/// The bars at the top of the main window: the menu bar (band "A0"), which stays where it is, and the two
/// toolbars ("A1" and "A2"), which the user moves about in the top area. Section "Toolbar" keeps their
/// places.
class Toolbars : public QObject {
    Q_OBJECT

public:
    /// Makes the bars with the buttons that need a document disabled. `restore` places them.
    explicit Toolbars(QMainWindow& window);

    /// Enables or disables the buttons that need a document: Save to Find, and all of the second bar but
    /// Exit.
    void SetDocumentButtons(bool enabled);
    /// A button whose command is not there stays disabled. `index` counts from 0, separators included.
    void setEnabled(int bar, int index, bool enabled);

    /// Shows or hides band "A1" or "A2"; another one is passed over.
    void showBand(std::string_view band, bool shown);
    /// Whether the band is to be seen, though the window itself be hidden. False for an unknown one.
    bool isBandVisible(std::string_view band) const;

    /// Places and shows the bands as they are stored: by their rows where one was hidden, else ordered by
    /// top, then left, a larger top in a new row.
    void restore(Store& store);
    /// Remembers which bands are visible.
    void storeVisibility(Store& store) const;
    struct Places {
        /// Screen rectangles, in pixels, of the bands "A0" to "A2"; null for a hidden one.
        std::array<QRect, 1 + kToolbarRows.size()> bands;
        /// How the toolbars follow each other, as `toText` tells; empty where none is hidden.
        std::string rows;
    };
    /// To be taken while the window is shown.
    Places places();
    /// Remembers the places of the bands that have one, and the rows.
    static void storePlaces(Store& store, const Places& places);

signals:
    /// A button was pressed.
    void MenuClick(const QString& key);
    /// The bars were clicked with the right button, or their popup asked for by key.
    void popupWanted(const QPoint& global);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolBar* build(const ToolbarRow& row);
    QAction* addButton(QToolBar& bar, const ToolbarButton& button);
    QToolBar* bandAt(std::string_view band) const;
    BandRows rowsOfAll();
    bool isOnBars(const QPoint& place) const;

    QMainWindow& window_;
    std::array<QToolBar*, kToolbarRows.size()> bars_{};
};

}  // namespace klt
