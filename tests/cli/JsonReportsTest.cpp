// The two formats for programs, read back by a parser. What SARIF 2.1.0 requires is checked by hand.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>

#include "checker/ErrorReason.h"
#include "support/RunKlt.h"
#include "support/Scratch.h"

namespace klt {
namespace {

using Json = nlohmann::json;

class JsonReports : public testing::Test {
protected:
    JsonReports() {
        writeBytes(clean_, "[ADS]\r\n");
        writeBytes(faulty_, "[ADS]\r\n\u00c9tude \"1\", 5, gives(+1 to Other)\r\n<a\r\n");
    }
    // Checks files in one format and gives what was written as a tree.
    Json checked(const char* format, std::vector<std::string> files, int status) {
        files.insert(files.begin(), {"check", "--format", format});
        const auto ran = runKlt(files);
        EXPECT_EQ(ran.status, status) << ran;
        EXPECT_TRUE(ran.out.ends_with("\n")) << ran;
        auto tree = Json::parse(ran.out, nullptr, false);
        EXPECT_FALSE(tree.is_discarded()) << ran;
        return tree;
    }
    ScratchHome home_;
    const std::string clean_ = home_ / "clean.klt";
    const std::string faulty_ = home_ / "a \"b\"#\u00e9.klt";
};

TEST_F(JsonReports, Json) {
    EXPECT_EQ(checked("json", {clean_}, 0), Json::array());
    EXPECT_EQ(checked("json", {home_ / "none.klt"}, 2), Json::array());
    const auto finding = [&](int line, int column, int endColumn, ErrorReason reason) {
        return Json{{"file", faulty_},
                    {"line", line},
                    {"column", column},
                    {"endLine", line},
                    {"endColumn", endColumn},
                    {"severity", "error"},
                    {"rule", errorReason(reason).id},
                    {"reason", errorReason(reason).text}};
    };
    const auto all = Json::array({finding(2, 27, 32, ErrorReason::KeywordOfNeeds),
                                  finding(3, 1, 3, ErrorReason::SubsectionNotClosed)});
    EXPECT_EQ(checked("json", {clean_, faulty_}, 1), all);
}

TEST_F(JsonReports, BytesOfNoCharacterInAName) {
    const auto path = home_ / "a\xFF.klt";
    writeBytes(path, "<a");
    EXPECT_EQ(checked("json", {path}, 1)[0]["file"], home_ / "a\uFFFD.klt");
}

// The one run of a log that has the shape that it must have.
Json runOf(const Json& log) {
    EXPECT_EQ(log.value("version", ""), "2.1.0");
    EXPECT_TRUE(log.value("$schema", "").ends_with("sarif-schema-2.1.0.json"));
    EXPECT_EQ(log.at("runs").size(), 1U);
    const auto& run = log.at("runs").at(0);
    EXPECT_EQ(run.value("columnKind", ""), "unicodeCodePoints");
    EXPECT_EQ(run.at("tool").at("driver").value("name", ""), "klt");
    return run;
}

// A reference to a URI that holds no character which would have to be escaped.
void expectUri(const std::string& uri) {
    constexpr const char* kAllowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~:/%";
    EXPECT_FALSE(uri.empty());
    EXPECT_EQ(uri.find_first_not_of(kAllowed), std::string::npos) << uri;
}

TEST_F(JsonReports, SarifHasOneRuleForEachReason) {
    const auto run = runOf(checked("sarif", {clean_}, 0));
    const auto& rules = run.at("tool").at("driver").at("rules");
    ASSERT_EQ(rules.size(), kErrorReasonCount);
    std::set<std::string> ids;
    for (size_t i = 0; i < kErrorReasonCount; ++i) {
        const auto& reason = kErrorReasons[i];
        EXPECT_EQ(rules[i].at("id"), reason.id);
        EXPECT_EQ(rules[i].at("shortDescription").at("text"), reason.text);
        EXPECT_EQ(rules[i].at("defaultConfiguration").at("level"), "error");
        EXPECT_TRUE(ids.insert(std::string(reason.id)).second) << reason.id << " is there twice";
    }
    EXPECT_EQ(run.at("results"), Json::array());
    EXPECT_EQ(run.at("invocations"), Json::parse(R"([{"executionSuccessful": true}])"));
}

TEST_F(JsonReports, SarifResults) {
    const auto run = runOf(checked("sarif", {faulty_, clean_}, 1));
    const auto& rules = run.at("tool").at("driver").at("rules");
    ASSERT_EQ(run.at("results").size(), 2U);
    for (const auto& result : run.at("results")) {
        const auto& rule = rules.at(result.at("ruleIndex").get<size_t>());
        EXPECT_EQ(result.at("ruleId"), rule.at("id"));
        EXPECT_EQ(result.at("message").at("text"), rule.at("shortDescription").at("text"));
        EXPECT_EQ(result.at("level"), "error");
        ASSERT_EQ(result.at("locations").size(), 1U);
        const auto& uri = result["locations"][0].at("physicalLocation").at("artifactLocation").at("uri");
        expectUri(uri);
        EXPECT_TRUE(uri.get<std::string>().starts_with("file:///"));
        EXPECT_TRUE(uri.get<std::string>().ends_with("/a%20%22b%22%23%C3%A9.klt"));
    }
    const auto region = run["results"][0]["locations"][0]["physicalLocation"].at("region");
    EXPECT_EQ(region, Json::parse(R"({"startLine": 2, "startColumn": 27, "endLine": 2, "endColumn": 32})"));
}

TEST_F(JsonReports, SarifTellsOfFilesThatCouldNotBeChecked) {
    const auto run = runOf(checked("sarif", {home_ / "none.klt", faulty_}, 2));
    EXPECT_EQ(run.at("results").size(), 2U);
    ASSERT_EQ(run.at("invocations").size(), 1U);
    const auto& invocation = run["invocations"][0];
    EXPECT_EQ(invocation.at("executionSuccessful"), false);
    ASSERT_EQ(invocation.at("toolExecutionNotifications").size(), 1U);
    const auto& notification = invocation["toolExecutionNotifications"][0];
    EXPECT_EQ(notification.at("level"), "error");
    EXPECT_EQ(notification.at("message").at("text"), "No such file or directory");
    expectUri(notification.at("locations").at(0).at("physicalLocation").at("artifactLocation").at("uri"));
}

}  // namespace
}  // namespace klt
