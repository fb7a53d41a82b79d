#include "app/dialogs/frmKLTChecker.h"

#include <QGridLayout>
#include <QLabel>
#include <QPixmap>
#include <QProgressBar>
#include <QPushButton>
#include <cmath>

#include "app/dialogs/FlowingText.h"
#include "app/window/ProgramIcon.h"
#include "ui/QtStrings.h"

namespace klt {
namespace {

constexpr char kPatience[] =
    "KLT Editor is checking the syntax in the current data file. Please be patient, it can take several "
    "minutes depending on data file size, processor clock and amount of memory available.";
constexpr char kStill[] =
    "If the progress bar bellow stays still for a long time, there is the chance that it may be due to a bug "
    "in the Syntax Checker. In that case, you should click the \"Unlock\"";
constexpr char kWatch[] =
    "button bellow (even if the mouse cursor is still an hourglass). After that, watch the data file for a "
    "while. If anything happens at all, things are fine, and you should click the \"Lock\" button to speed "
    "things up. Otherwise, e-mail me a copy of the data file and I'll try to solve the problem. Please note "
    "that it may take a little while before the button answers.";
constexpr char kDisable[] =
    "To disable (or re-enable) this window, go to the Window Menu and click \"Show KLT Syntax Checker "
    "Window\".";
constexpr int kCharactersInLine = 58;

QLabel* makeLabel(const char* name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

FlowingText* makeParagraph(const std::vector<FlowingText::Piece>& pieces, QWidget* parent) {
    auto* paragraph = new FlowingText(pieces, parent);
    paragraph->setMinimumWidth(paragraph->fontMetrics().averageCharWidth() * kCharactersInLine);
    return paragraph;
}

/// Shows what a document says, however long, without a say in the window's width.
QLabel* makeValue(const char* name, QWidget* parent) {
    auto* label = makeLabel(name, {}, parent);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

QString shown(std::string_view text) {
    constexpr size_t kMost = 200;
    return toQString(text.substr(0, kMost));
}

/// A decoration: the program's icon on a coloured ground.
QLabel* makePicture(QWidget* parent) {
    constexpr QSize kSize(79, 101);
    constexpr int kIcon = 48;
    QPixmap ground(kSize);
    ground.fill(QColor(136, 192, 184));
    auto* picture = makeLabel("Picture1", {}, parent);
    picture->setPixmap(ground);
    picture->setFixedSize(kSize);
    auto* icon = makeLabel("Picture2", {}, picture);
    icon->setPixmap(programIcon().pixmap(kIcon));
    icon->setAlignment(Qt::AlignCenter);
    icon->setFixedSize(kSize);
    return picture;
}

}  // namespace

frmKLTChecker::frmKLTChecker(QWidget* owner)
    : QDialog(owner),
      lblCurrSection_(makeValue("lblCurrSection", this)),
      lblCurrSubSection_(makeValue("lblCurrSubSection", this)),
      vbProgressBar1_(new QProgressBar(this)),
      Label8_(makeLabel("Label8", "0%", this)),
      cmdToggleLock_(new QPushButton("Unlock", this)) {
    setObjectName("frmKLTChecker");
    setWindowTitle("KLT Editor Syntax Checker");
    // What the user types goes on to the document, when the pass is over.
    setAttribute(Qt::WA_ShowWithoutActivating);
    vbProgressBar1_->setObjectName("vbProgressBar1");
    vbProgressBar1_->setAccessibleName("Progress");
    vbProgressBar1_->setTextVisible(false);
    cmdToggleLock_->setObjectName("cmdToggleLock");
    connect(cmdToggleLock_, &QPushButton::clicked, this, &frmKLTChecker::toggleLock);

    auto* grid = new QGridLayout;
    grid->addWidget(makeLabel("Label2", "Section:", this), 0, 0);
    grid->addWidget(lblCurrSection_, 0, 1, 1, 2);
    grid->addWidget(makeLabel("Label3", "Subsection:", this), 1, 0);
    grid->addWidget(lblCurrSubSection_, 1, 1, 1, 2);
    grid->addWidget(makeLabel("Label7", "Progress:", this), 2, 0);
    grid->addWidget(vbProgressBar1_, 2, 1);
    grid->addWidget(Label8_, 2, 2);
    grid->setColumnStretch(1, 1);
    Label8_->setMinimumWidth(Label8_->fontMetrics().horizontalAdvance("100%"));

    auto* column = new QVBoxLayout;
    column->addWidget(makeParagraph({{"Label1", kPatience}}, this));
    column->addLayout(grid);
    column->addWidget(makeParagraph({{"Label5", kStill}, {"Label6", kWatch}}, this));
    column->addWidget(cmdToggleLock_, 0, Qt::AlignHCenter);
    column->addWidget(makeParagraph({{"Label4", kDisable}}, this));

    auto* row = new QHBoxLayout(this);
    row->addWidget(makePicture(this), 0, Qt::AlignTop);
    row->addLayout(column, 1);
}

void frmKLTChecker::SetLblCaptions(std::string_view section, std::string_view subsection) {
    lblCurrSection_->setText(shown(section));
    lblCurrSubSection_->setText(shown(subsection));
}

void frmKLTChecker::SetProgressInfo(Position max) {
    vbProgressBar1_->setRange(1, static_cast<int>(max));
}

void frmKLTChecker::StepIt(Position position) {
    vbProgressBar1_->setValue(static_cast<int>(position));
    const double share = 100.0 * static_cast<double>(position) / vbProgressBar1_->maximum();
    Label8_->setText(QString::number(std::lround(share)) + '%');
}

void frmKLTChecker::toggleLock() {
    const bool locks = cmdToggleLock_->text() == "Lock";
    cmdToggleLock_->setText(locks ? "Unlock" : "Lock");
    emit lockToggled(locks);
}

}  // namespace klt
