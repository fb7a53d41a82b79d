#include "cli/CheckCommand.h"

#include <string>
#include <string_view>

#include "checker/DocumentPass.h"
#include "cli/Report.h"
#include "language/Section.h"
#include "text/Encoding.h"

namespace klt {

namespace {

// The brackets may be left out: a shell takes them for a pattern.
std::string headerOf(const std::string& section) {
    auto bracketed = "[" + section + "]";
    return sectionOf(bracketed) == Section::Other ? section : bracketed;
}

std::string withParenthesis(const std::string& tag) {
    return tag.ends_with('(') ? tag : tag + "(";
}

class Check {
public:
    Check(Session& session, const CheckArguments& arguments)
        : session_(session), report_(makeReport(arguments, session.out())) {}

    void run(const CheckFiles& subject) {
        session_.forEachFile(subject.files, [&](const std::string& path) {
            auto failure = checkFile(path, subject.preview);
            if (failure) report_->addFailure(shownName(path), *failure);
            return failure;
        });
        report_->end();
    }

    void run(const CheckOneField& subject) {
        StyledText field(decode(subject.text).text);
        const auto source = sourceOf(field);
        CheckerState state;
        state.SetCurrentSection(headerOf(subject.section));
        if (subject.passHasRun) state.functionStack.reset();
        ErrorRuns errors;
        CheckField(field, state, withParenthesis(subject.tag), &errors);
        add({"field", field, std::move(errors), source, true});
        report_->end();
    }

private:
    Failure checkFile(const std::string& path, const std::optional<std::string>& preview) {
        auto file = session_.read(path);
        if (file.error) return file.error;
        StyledText text(decode(std::move(file.bytes)).text);
        const auto source = sourceOf(text);
        CheckerState state;
        ErrorRuns errors;
        if (preview) {
            state.functionStack.reset();
            state.SetCurrentSection(headerOf(*preview));
            CheckRange(text, state, 0, text.size(), &errors);
        } else {
            CheckDocument(text, state, nullptr, &errors);
        }
        add({shownName(path), text, std::move(errors), source});
        return {};
    }

    // A check puts the case of words right.
    std::string sourceOf(const StyledText& text) const {
        return report_->showsSource() ? std::string(text.text()) : std::string();
    }

    void add(Checked checked) {
        if (!checked.errors.empty()) session_.note(ExitStatus::Found);
        report_->add(std::move(checked));
    }

    Session& session_;
    std::unique_ptr<Report> report_;
};

}  // namespace

void runCheck(Session& session, const CheckArguments& arguments) {
    Check check(session, arguments);
    std::visit([&](const auto& subject) { check.run(subject); }, arguments.subject);
}

}  // namespace klt
