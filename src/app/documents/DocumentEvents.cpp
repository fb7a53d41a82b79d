#include "app/documents/DocumentEvents.h"

#include <QCoreApplication>

#include "app/documents/ModifiedStamp.h"
#include "app/documents/frmKLTEditor.h"
#include "app/menus/EditButtons.h"
#include "app/modVariables.h"
#include "app/window/frmMDIKLTEditor.h"
#include "text/TextAreaGuards.h"
#include "text/Unicode.h"
#include "ui/CloseParenthesis.h"
#include "ui/modKLTSyntaxHighlighter.h"

namespace klt {

DocumentEvents::DocumentEvents(modVariables& variables, Store& store, modKLTSyntaxHighlighter& highlighter,
                               frmMDIKLTEditor& window)
    : variables_(variables), store_(store), highlighter_(highlighter), window_(window) {
    connect(&window, &frmMDIKLTEditor::documentLoaded, this, [this](frmKLTEditor* it) { attach(*it); });
    connect(&window, &frmMDIKLTEditor::documentActivated, this, [this](frmKLTEditor* it) { activate(*it); });
    connect(&window.clipboard(), &ClipboardState::changed, this, [this] {
        if (const auto* document = window_.ActiveForm())
            enablePaste(window_.toolbars(), *document->RichTextBox1, window_.clipboard().hasText());
    });
}

void DocumentEvents::attach(frmKLTEditor& document) {
    highlighter_.LoadStyles(*document.RichTextBox1);
    connect(document.RichTextBox1, &RichTextBox::Change, this, [this, &document] { change(document); });
    connect(document.RichTextBox1, &RichTextBox::SelChange, this, [this, &document] {
        if (!variables_.SuppressCaretUpdate) selChange(document);
    });
    pairTypedParentheses(*document.RichTextBox1, store_);
    connect(document.RichTextBox1, &RichTextBox::popupWanted, this,
            [this](QPoint place) { window_.showPopup("MainRTFPopup", place); });
}

bool DocumentEvents::isActive(const frmKLTEditor& document) const {
    return window_.ActiveForm() == &document;
}

void DocumentEvents::change(frmKLTEditor& document) {
    if (document.isLoading) {
        loaded(document);
    } else {
        edited(document);
    }
}

void DocumentEvents::edited(frmKLTEditor& document) {
    if (isActive(document)) {
        window_.toolbars().setEnabled(kDefaultBar, kUndoButton, true);
        window_.panels().showModified(true);
        window_.panels().showLength(document.RichTextBox1->CharacterCount());
    }
    document.setModified(true);
    window_.UpdateEditMenu();
}

void DocumentEvents::loaded(frmKLTEditor& document) {
    RichTextBox& text = *document.RichTextBox1;
    {
        const RedrawFreeze freeze(text);
        const NotificationMask mask(text);
        QCoreApplication::processEvents();
        highlighter_.SetDocumentFormat(text);
        document.isFileWanted = !document.isKeptText && stampModified(text);
        text.Select(0, 0);
        text.EmptyUndoBuffer();
    }
    if (!isActive(document)) return;
    disableAfterLoad(window_.toolbars());
    window_.panels().showModified(false);
    window_.panels().showLength(text.CharacterCount());
}

void DocumentEvents::selChange(const frmKLTEditor& document) {
    if (!isActive(document)) return;
    const RichTextBox& text = *document.RichTextBox1;
    enableForCaret(window_.toolbars(), text, window_.clipboard().hasText());
    const Position line = text.GetLineFromChar(text.SelStart());
    const std::string_view before = text.Slice(text.LineIndex(line), text.SelStart());
    window_.panels().showCaret(line + 1, static_cast<Position>(countCharacters(before)) + 1);
    window_.UpdateEditMenu();
}

void DocumentEvents::activate(const frmKLTEditor& document) {
    const RaisedFlag activating(variables_.ActivatingDocument);
    window_.toolbars().setEnabled(kDefaultBar, kUndoButton, document.Modified());
    window_.panels().showModified(document.Modified());
    window_.panels().showLength(document.RichTextBox1->CharacterCount());
    variables_.CurrentFilePath = document.Caption();
    window_.Timer1().start();
    selChange(document);
}

}  // namespace klt
