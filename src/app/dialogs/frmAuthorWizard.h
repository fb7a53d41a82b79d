#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <string>

#include "forms/WizardServices.h"
#include "wizards/AuthorBlock.h"
#include "wizards/AuthorEntry.h"
#include "wizards/LineTarget.h"

class QCheckBox;
class QGridLayout;
class QLineEdit;
class QTabWidget;

namespace klt {

class WizardCombo;

/// The document into which the author's block goes.
struct AuthorDocument {
    AreaLookup text;
    /// What its file is called, without folder and ending.
    QString fileName;
    std::function<void(const QString& fileName)> nameFile;
};

/// Writes the author's block behind the text of a document. Whoever enters a new name becomes a profile,
/// however the window closes.
class frmAuthorWizard : public QDialog {
    Q_OBJECT

public:
    /// The document's caret goes to its start. What `services` refers to must outlive the form.
    frmAuthorWizard(WizardServices services, AuthorDocument document, QWidget* owner);
    ~frmAuthorWizard() override;

    /// Moves to its place at the first time.
    void setVisible(bool visible) override;
    /// Remembers its place.
    void done(int result) override;

private:
    QWidget* makeContact();
    QWidget* makeFile();
    QWidget* makeContents();
    QWidget* makeCopyright();
    void addContentsBox(const ContentsRow& row, QGridLayout& grid);
    void buildLayout();
    void fill();
    void showAddresses();
    void finish();
    bool write();
    AuthorBlock block() const;
    std::string textOf(std::string_view field) const;
    void keepAuthor();

    const WizardServices services_;
    const AuthorDocument document_;
    AuthorEntry entry_;
    WizardCombo* AuthorName_;
    std::array<QLineEdit*, 3> Email_{};
    QTabWidget* vbTabControl1_;
    QString filledFileName_;
    bool isPlaced_ = false;
    bool isAuthorKept_ = false;
};

}  // namespace klt
