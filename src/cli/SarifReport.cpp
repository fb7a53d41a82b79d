#include <utility>

#include "cli/Findings.h"
#include "cli/JsonText.h"
#include "cli/Report.h"

namespace klt {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view kHead =
    R"({"$schema":"https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json",)"
    R"("version":"2.1.0","runs":[{"tool":)";

bool standsForItself(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~/").find(c) != std::string_view::npos;
}

std::string uriOf(std::string_view path) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string uri(path.starts_with('/') ? "file://" : "");
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (standsForItself(c)) {
            uri += c;
        } else {
            uri.append("%").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 0xF]);
        }
    }
    return uri;
}

Json toolOf() {
    auto rules = Json::array();
    for (const auto& reason : kErrorReasons)
        rules.push_back({{"id", reason.id},
                         {"shortDescription", {{"text", reason.text}}},
                         {"defaultConfiguration", {{"level", "error"}}}});
    return {{"driver", {{"name", "klt"}, {"version", KLT_VERSION}, {"rules", std::move(rules)}}}};
}

Json locationOf(std::string_view name) {
    return {{"artifactLocation", {{"uri", uriOf(name)}}}};
}

Json resultOf(const Finding& finding, Json location) {
    const auto& reason = errorReason(finding.reason);
    location["region"] = {{"startLine", finding.start.line},
                          {"startColumn", finding.start.column},
                          {"endLine", finding.end.line},
                          {"endColumn", finding.end.column}};
    return {{"ruleId", reason.id},
            {"ruleIndex", static_cast<size_t>(finding.reason)},
            {"level", "error"},
            {"message", {{"text", reason.text}}},
            {"locations", Json::array({{{"physicalLocation", std::move(location)}}})}};
}

/// One SARIF 2.1.0 log of one run, its results written as they come.
class SarifReport : public Report {
public:
    explicit SarifReport(Output& out) : out_(out) {
        out_.write(kHead);
        out_.write(jsonText(toolOf()));
        out_.write(R"(,"columnKind":"unicodeCodePoints","results":[)");
    }

    void add(Checked checked) override {
        const auto location = locationOf(checked.name);
        for (const auto& finding : findingsOf(checked.text.text(), std::move(checked.errors))) {
            out_.write(std::exchange(isEmpty_, false) ? "\n" : ",\n");
            out_.write(jsonText(resultOf(finding, location)));
        }
    }

    void addFailure(std::string_view name, std::string_view reason) override {
        failures_.push_back({{"level", "error"},
                             {"message", {{"text", reason}}},
                             {"locations", Json::array({{{"physicalLocation", locationOf(name)}}})}});
    }

    void end() override {
        Json invocation = {{"executionSuccessful", failures_.empty()}};
        if (!failures_.empty()) invocation["toolExecutionNotifications"] = std::move(failures_);
        out_.write("],\"invocations\":");
        out_.write(jsonText(Json::array({std::move(invocation)})));
        out_.write("}]}\n");
    }

private:
    Output& out_;
    bool isEmpty_ = true;
    Json failures_ = Json::array();
};

}  // namespace

std::unique_ptr<Report> makeSarifReport(Output& out) {
    return std::make_unique<SarifReport>(out);
}

}  // namespace klt
