#include "app/dialogs/CopyrightPages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QVBoxLayout>

#include "ui/QtStrings.h"
#include "wizards/AuthorBlock.h"

namespace klt {
namespace {

/// One line of a notice as a row. `spoken` is what a screen reader calls its fields: the words in front.
QLayout* makeRow(const NoticeLine& line, const QString& tab, QString& spoken) {
    auto* row = new QHBoxLayout;
    bool hasField = false;
    for (const NoticePart& part : line) {
        const QString words = toQString(part.words).simplified();
        if (!words.isEmpty()) row->addWidget(new QLabel(literally(words.toStdString())));
        if (!words.isEmpty()) spoken = words;
        if (part.field.empty()) continue;
        auto* field = new QLineEdit;
        field->setObjectName(toQString(part.field));
        field->setAccessibleName(tab + ": " + spoken);
        row->addWidget(field, 1);
        hasField = true;
    }
    if (!hasField) row->addStretch();
    return row;
}

QWidget* makePage(const Notice& notice) {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    QString spoken;
    for (const NoticeLine& line : notice.lines) rows->addLayout(makeRow(line, toQString(notice.tab), spoken));
    rows->addStretch();
    return page;
}

void copyChanges(const QLineEdit& from, QLineEdit& to) {
    QObject::connect(&from, &QLineEdit::textChanged, &to, [&to](const QString& text) {
        if (to.text() != text) to.setText(text);
    });
}

}  // namespace

QTabWidget* makeCopyrightPages() {
    auto* tabs = new QTabWidget;
    tabs->setObjectName("vbTabControl1");
    // All of them are to be seen.
    tabs->setUsesScrollButtons(false);
    for (const Notice& notice : kNotices) tabs->addTab(makePage(notice), literally(notice.tab));
    for (const FieldPair& pair : kPairedFields) {
        auto& first = *tabs->findChild<QLineEdit*>(toQString(pair.first));
        auto& second = *tabs->findChild<QLineEdit*>(toQString(pair.second));
        copyChanges(first, second);
        copyChanges(second, first);
    }
    return tabs;
}

}  // namespace klt
