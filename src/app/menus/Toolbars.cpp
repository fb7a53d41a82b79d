#include "app/menus/Toolbars.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>
#include <algorithm>

#include "app/commands/Commands.h"
#include "app/menus/BandRows.h"
#include "app/menus/CommandIcons.h"
#include "settings/Catalogue.h"

namespace klt {
namespace {

// The icons are drawn for 16, 22 and 32 pixels.
constexpr QSize kIconSize{22, 22};

struct BandSettings {
    NumberSetting left;
    NumberSetting top;
    NumberSetting width;
};
constexpr std::array<BandSettings, 1 + kToolbarRows.size()> kBands = {{
    {settings::kMenubarLeft, settings::kMenubarTop, settings::kMenubarWidth},
    {settings::kDefaultLeft, settings::kDefaultTop, settings::kDefaultWidth},
    {settings::kWizardsLeft, settings::kWizardsTop, settings::kWizardsWidth},
}};
constexpr std::array<TruthSetting, kToolbarRows.size()> kVisible = {settings::kDefaultVisible,
                                                                    settings::kWizardsVisible};

QString toQString(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

/// As they stood at the last exit. The place of a hidden one is older than the others', and not compared with
/// them where the rows are told.
BandRows storedRows(Store& store) {
    if (const auto rows = rowsFrom(readSetting(store, settings::kBandRows))) return *rows;
    std::array<QPoint, kToolbarRows.size()> places;
    for (std::size_t bar = 0; bar < places.size(); ++bar) {
        const BandSettings& band = kBands[bar + 1];
        places[bar] = {readSetting(store, band.left), readSetting(store, band.top)};
    }
    return rowsByPlaces(places);
}

QRect placeOnScreen(const QWidget& bar) {
    return {bar.mapToGlobal(QPoint(0, 0)), bar.size()};
}

}  // namespace

Toolbars::Toolbars(QMainWindow& window) : QObject(&window), window_(window) {
    std::transform(kToolbarRows.begin(), kToolbarRows.end(), bars_.begin(),
                   [this](const ToolbarRow& row) { return build(row); });
    SetDocumentButtons(false);
    window.installEventFilter(this);
}

QToolBar* Toolbars::build(const ToolbarRow& row) {
    const QString name = toQString(row.name);
    auto* bar = new QToolBar(toQString(row.title), &window_);
    bar->setObjectName(name);
    bar->setAccessibleName(bar->windowTitle());
    bar->setAllowedAreas(Qt::TopToolBarArea);
    bar->setFloatable(false);
    bar->setIconSize(kIconSize);
    for (int index = 0; const ToolbarButton& button : row.buttons) {
        QAction* action = button.isSeparator() ? bar->addSeparator() : addButton(*bar, button);
        action->setObjectName(name + '.' + QString::number(index++));
    }
    return bar;
}

QAction* Toolbars::addButton(QToolBar& bar, const ToolbarButton& button) {
    const QString key = toQString(button.key);
    const QString tip = toQString(button.tip);
    auto* action = bar.addAction(commandIcon(key), tip, this, [this, key] { emit MenuClick(key); });
    action->setToolTip(tip);
    action->setEnabled(commandIsThere(button.key));
    // A disabled one would keep a right click to itself.
    bar.widgetForAction(action)->installEventFilter(this);
    return action;
}

void Toolbars::SetDocumentButtons(bool enabled) {
    for (int index = kSaveButton; index <= kFindButton; ++index) setEnabled(kDefaultBar, index, enabled);
    const int exit = static_cast<int>(kWizardsButtons.size()) - 1;
    for (int index = 0; index < exit; ++index) setEnabled(kWizardsBar, index, enabled);
}

void Toolbars::setEnabled(int bar, int index, bool enabled) {
    const auto& button = kToolbarRows[static_cast<std::size_t>(bar)].buttons[static_cast<std::size_t>(index)];
    auto* action = bars_[static_cast<std::size_t>(bar)]->actions()[index];
    if (!button.isSeparator()) action->setEnabled(enabled && commandIsThere(button.key));
}

QToolBar* Toolbars::bandAt(std::string_view band) const {
    const auto bar = barOf(band);
    return bar ? bars_[*bar] : nullptr;
}

void Toolbars::showBand(std::string_view band, bool shown) {
    if (auto* bar = bandAt(band)) bar->setVisible(shown);
}

bool Toolbars::isBandVisible(std::string_view band) const {
    const auto* bar = bandAt(band);
    return bar && !bar->isHidden();
}

void Toolbars::restore(Store& store) {
    for (const BandPlace& it : storedRows(store)) {
        if (it.beginsRow) window_.addToolBarBreak(Qt::TopToolBarArea);
        window_.addToolBar(Qt::TopToolBarArea, bars_[it.bar]);
    }
    for (std::size_t bar = 0; bar < bars_.size(); ++bar)
        bars_[bar]->setVisible(readSetting(store, kVisible[bar]));
}

void Toolbars::storeVisibility(Store& store) const {
    store.together([&] {
        for (std::size_t bar = 0; bar < bars_.size(); ++bar)
            writeSetting(store, kVisible[bar], !bars_[bar]->isHidden());
        return true;
    });
}

Toolbars::Places Toolbars::places() {
    // The layout of the last change may still be pending.
    window_.layout()->activate();
    Places places;
    places.bands[0] = placeOnScreen(*window_.menuBar());
    for (std::size_t bar = 0; bar < bars_.size(); ++bar)
        if (!bars_[bar]->isHidden()) places.bands[bar + 1] = placeOnScreen(*bars_[bar]);
    if (std::any_of(bars_.begin(), bars_.end(), [](const QToolBar* it) { return it->isHidden(); }))
        places.rows = toText(rowsOfAll());
    return places;
}

/// A hidden bar has no place, but the layout knows where it would come: it is shown and hidden again before
/// anything is painted.
BandRows Toolbars::rowsOfAll() {
    std::array<bool, kToolbarRows.size()> isHidden{};
    std::array<QPoint, kToolbarRows.size()> places;
    for (std::size_t bar = 0; bar < bars_.size(); ++bar) {
        isHidden[bar] = bars_[bar]->isHidden();
        bars_[bar]->show();
    }
    window_.layout()->activate();
    for (std::size_t bar = 0; bar < bars_.size(); ++bar) places[bar] = bars_[bar]->pos();
    for (std::size_t bar = 0; bar < bars_.size(); ++bar) bars_[bar]->setHidden(isHidden[bar]);
    return rowsByPlaces(places);
}

void Toolbars::storePlaces(Store& store, const Places& places) {
    store.together([&] {
        for (std::size_t band = 0; band < places.bands.size(); ++band) {
            const QRect& place = places.bands[band];
            if (place.isNull()) continue;
            writeSetting(store, kBands[band].left, place.x());
            writeSetting(store, kBands[band].top, place.y());
            writeSetting(store, kBands[band].width, place.width());
        }
        if (places.rows.empty()) {
            removeSetting(store, settings::kBandRows);
        } else {
            writeSetting(store, settings::kBandRows, places.rows);
        }
        return true;
    });
}

/// The bars, and what is left free beside them.
bool Toolbars::isOnBars(const QPoint& place) const {
    const QWidget* widget = window_.childAt(place);
    for (; widget && widget != &window_; widget = widget->parentWidget())
        if (qobject_cast<const QToolBar*>(widget) || qobject_cast<const QMenuBar*>(widget)) return true;
    return place.y() < window_.centralWidget()->y();
}

bool Toolbars::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ContextMenu) return false;
    const auto& asked = static_cast<const QContextMenuEvent&>(*event);
    if (watched == &window_ && !isOnBars(asked.pos())) return false;
    emit popupWanted(asked.globalPos());
    return true;
}

}  // namespace klt
