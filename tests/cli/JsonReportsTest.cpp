// The two formats for programs, read back by a parser. What SARIF 2.1.0 requires is checked by hand.

#include <nlohmann/json.hpp>
#include <set>

#include "checker/ErrorReason.h"
#include "support/RunKlt.h"

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
    auto all = Json::parse(R"([
        {"line": 2, "column": 27, "endLine": 2, "endColumn": 32, "severity": "error",
         "rule": "keyword-of-needs", "reason": "this keyword is for needs only"},
        {"line": 3, "column": 1, "endLine": 3, "endColumn": 3, "severity": "error",
         "rule": "subsection-not-closed", "reason": "the subsection header does not end in >"}])");
    for (auto& finding : all) finding["file"] = faulty_;
    EXPECT_EQ(checked("json", {clean_, faulty_}, 1), all);
}

TEST_F(JsonReports, BytesOfNoCharacterInAName) {
    const auto path = home_ / "a\xFF.klt";
    writeBytes(path, "<a");
    EXPECT_EQ(checked("json", {path}, 1)[0]["file"], home_ / "a\uFFFD.klt");
}

TEST_F(JsonReports, Sarif) {
    const auto log = checked("sarif", {home_ / "none.klt", faulty_, clean_}, 2);
    EXPECT_EQ(log.at("version"), "2.1.0");
    EXPECT_TRUE(log.value("$schema", "").ends_with("sarif-schema-2.1.0.json"));
    ASSERT_EQ(log.at("runs").size(), 1U);
    const auto& run = log["runs"][0];
    EXPECT_EQ(run.at("columnKind"), "unicodeCodePoints");
    EXPECT_EQ(run.at("tool").at("driver").at("name"), "klt");

    const auto& rules = run["tool"]["driver"].at("rules");
    ASSERT_EQ(rules.size(), kErrorReasonCount);
    std::set<std::string> ids;
    for (size_t i = 0; i < kErrorReasonCount; ++i) {
        const auto& [reason, id, text] = kErrorReasons[i];
        EXPECT_EQ(rules[i].at("id"), id);
        EXPECT_EQ(rules[i].at("shortDescription").at("text"), text);
        EXPECT_EQ(rules[i].at("defaultConfiguration").at("level"), "error");
        EXPECT_TRUE(ids.emplace(id).second) << id << " is there twice";
    }

    // No character stands in the reference that would have to be escaped.
    const auto place = "/locations/0/physicalLocation"_json_pointer, uri = place / "artifactLocation" / "uri";
    const auto& results = run.at("results");
    ASSERT_EQ(results.size(), 2U);
    for (const auto& result : results) {
        const auto& rule = rules.at(result.at("ruleIndex").get<size_t>());
        EXPECT_EQ(result.at("ruleId"), rule.at("id"));
        EXPECT_EQ(result.at("message"), rule.at("shortDescription"));
        EXPECT_EQ(result.at("level"), "error");
        EXPECT_EQ(result.at(uri), "file://" + home_ / "a%20%22b%22%23%C3%A9.klt");
    }
    EXPECT_EQ(results[0].at("ruleId"), errorReason(ErrorReason::KeywordOfNeeds).id);
    EXPECT_EQ(results[0].at(place / "region"),
              Json::parse(R"({"startLine": 2, "startColumn": 27, "endLine": 2, "endColumn": 32})"));

    const auto& invocation = run.at("invocations").at(0);
    EXPECT_EQ(invocation.at("executionSuccessful"), false);
    const auto& told = invocation.at("toolExecutionNotifications");
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].at("level"), "error");
    EXPECT_EQ(told[0].at("message").at("text"), "No such file or directory");
    EXPECT_EQ(told[0].at(uri), "file://" + home_ / "none.klt");

    const auto clean = checked("sarif", {clean_}, 0).at("runs").at(0);
    EXPECT_EQ(clean.at("results"), Json::array());
    EXPECT_EQ(clean.at("invocations"), Json::parse(R"([{"executionSuccessful": true}])"));
}

}  // namespace
}  // namespace klt
