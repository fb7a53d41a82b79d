#pragma once

#include <QObject>

namespace klt {

class frmKLTEditor;
class frmMDIKLTEditor;
class Store;
class modKLTSyntaxHighlighter;
struct modVariables;

/// What the documents' events do: the load step and the noting of edits, the status panels, activation.
class DocumentEvents : public QObject {
public:
    DocumentEvents(modVariables& variables, Store& store, modKLTSyntaxHighlighter& highlighter,
                   frmMDIKLTEditor& window);

private:
    void attach(frmKLTEditor& document);
    void change(frmKLTEditor& document);
    void edited(frmKLTEditor& document);
    void loaded(frmKLTEditor& document);
    void selChange(const frmKLTEditor& document);
    void activate(const frmKLTEditor& document);
    bool isActive(const frmKLTEditor& document) const;

    modVariables& variables_;
    Store& store_;
    modKLTSyntaxHighlighter& highlighter_;
    frmMDIKLTEditor& window_;
};

}  // namespace klt
