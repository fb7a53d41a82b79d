#pragma once

#include <QDesktopServices>
#include <QTextBrowser>
#include <QUrl>
#include <string>

namespace klt {

/// Stands for the desktop that opens web and mail addresses.
class Desktop {
public:
    Desktop() {
        for (const char* scheme : kSchemes) QDesktopServices::setUrlHandler(scheme, &browser_, "setSource");
        opened();
    }
    ~Desktop() {
        for (const char* scheme : kSchemes) QDesktopServices::unsetUrlHandler(scheme);
    }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    /// What was to be opened since the last call.
    std::string opened() {
        constexpr char kBlank[] = "about:blank";
        const auto address = browser_.source().toString(QUrl::FullyEncoded).toStdString();
        browser_.setSource(QUrl(kBlank));
        return address == kBlank ? "" : address;
    }

private:
    static constexpr const char* kSchemes[] = {"https", "mailto"};

    /// A page that it does not find it still names.
    class Browser : public QTextBrowser {
        QVariant loadResource(int, const QUrl&) override { return " "; }
    } browser_;
};

}  // namespace klt
