// A line taken out of a document into its wizard and written back, and a new one put into it. The first byte
// chooses the caret's place, the second how lines are broken.

#include "CheckInvariants.h"
#include "support/MemoryTextArea.h"
#include "wizards/Wizards.h"

using namespace klt;

namespace {

void editLine(MemoryTextArea& document, LineBreakLimits limits) {
    const auto found = EditLine(document);
    fuzz::require(found.EditLineStart <= document.Length(), "the line begins inside the text");
    const bool isItem = found.kind == EditLineResult::Kind::Item;
    fuzz::require(!isItem || found.section != Section::Other, "an item has a section");

    const std::string before(document.Text());
    const auto wizard = wizardOfItem(
        document, [&document] { return &document; }, found);
    if (wizard == nullptr) return;
    const EditedItem& item = wizard->opening().item;
    const auto place = item.place->range;
    if (wizard->finish(limits).kind != DoneResult::Kind::Closes) {
        fuzz::require(document.Text() == before, "a refusal changes nothing");
        return;
    }
    fuzz::require(document.Text().starts_with(before.substr(0, static_cast<size_t>(place.start))),
                  "what is above stays");
    fuzz::require(document.Text().ends_with(before.substr(static_cast<size_t>(place.end))),
                  "what is below stays");
}

void newLine(MemoryTextArea& document, LineBreakLimits limits) {
    Wizard wizard(kAdWizard, {.target = [&document] { return &document; }});
    wizard.fillCombos(document.Text());
    wizard.click("optAdType", kOn);
    const auto items = wizard.state.control("cmbAdCat").list.size();
    if (items > 0) {
        wizard.click("cmbAdCat", static_cast<int>(items / 2));
    } else {
        wizard.state.setText("cmbAdCat", "New");
    }
    wizard.state.setText("rtbItemName", "Name");
    wizard.state.setText("rtbItemCost", "5");
    const auto length = document.Length();
    if (wizard.finish(limits).kind != DoneResult::Kind::StaysOpen) return;
    constexpr std::string_view kLine = "Name, 5";
    fuzz::require(document.Slice(document.SelStart() - static_cast<Position>(kLine.size()),
                                 document.SelStart()) == kLine,
                  "the line stands in front of the caret");
    fuzz::require(document.Length() >= length + static_cast<Position>(kLine.size()), "nothing is lost");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    if (size < 2) return 0;
    MemoryTextArea document(std::string_view(reinterpret_cast<const char*>(data) + 2, size - 2));
    document.SetSelStart(document.Length() * data[0] / 255);
    const LineBreakLimits limits{.maximum = data[1] / 2, .tolerance = data[1] % 20};
    editLine(document, limits);
    newLine(document, limits);
    return 0;
}
