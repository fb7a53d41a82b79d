#pragma once

#include "app/options/OptionsPage.h"
#include "settings/AuthorProfiles.h"

class QLayout;
class QPushButton;
class QTableWidget;

namespace klt {

class AuthorCells;
class CellEdit;
struct OptionsServices;

/// The tab "Edit Author Profiles": a row for each profile, edited in place, and the default one marked.
class AuthorsPage : public OptionsPage {
    Q_OBJECT

public:
    explicit AuthorsPage(const OptionsServices& services, QWidget* parent = nullptr);

    /// Stores all rows, and takes in what others have stored since the load.
    bool save() override;

private:
    void buildGrid();
    QLayout* buildButtons();
    void wire();
    void fill(const AuthorList& list);
    void fitColumns();
    void addRow(const AuthorProfile& profile);
    AuthorList shownList() const;
    /// The row that is selected; -1 for none.
    int selectedRow() const;
    void mark(int row);
    void tell(std::string_view text);
    void addAuthor();
    void deleteAuthor();
    void setDefault();
    void reset();

    Store& store_;
    /// As it was read: what has come into the store since then is new.
    std::vector<AuthorProfile> loaded_;
    QTableWidget* vbAuthorList_;
    CellEdit* txtEdit_;
    AuthorCells* cells_;
    QPushButton *Command1_, *Command2_, *Command5_, *Command6_;
};

}  // namespace klt
