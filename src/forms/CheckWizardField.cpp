#include "forms/CheckWizardField.h"

#include "checker/DocumentPass.h"
#include "settings/Catalogue.h"
#include "ui/CloseParenthesis.h"
#include "ui/modKLTSyntaxHighlighter.h"

namespace klt {

void CheckWizardField(RichTextBox& box, std::string_view tag, modKLTSyntaxHighlighter& highlighter,
                      Store& store) {
    if (box.Length() == 0 || !readSetting(store, settings::kWizardSyntaxCheck)) return;
    highlighter.SetFieldFormat(box);
    StyledText field{std::string(box.Text())};
    ErrorRuns errors;
    CheckField(field, highlighter.state, tag, &errors);
    box.RewriteRun(0, field.text());
    layCheckedStyles(box, field.styles());
    box.keepReasons({0, box.Length()}, errors);
}

void makeWizardField(RichTextBox& box, std::string tag, modKLTSyntaxHighlighter& highlighter, Store& store) {
    highlighter.SetFieldFormat(box);
    pairTypedParentheses(box, store);
    QObject::connect(&box, &RichTextBox::Change, &box, [&box, &highlighter, &store, tag = std::move(tag)] {
        CheckWizardField(box, tag, highlighter, store);
    });
}

}  // namespace klt
