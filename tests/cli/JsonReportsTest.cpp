// The two formats for programs, read back by a parser. What SARIF 2.1.0 requires is checked by hand.

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
        EXPECT_EQ(rules[i], (Json{{"id", id},
                                  {"shortDescription", {{"text", text}}},
                                  {"defaultConfiguration", {{"level", "error"}}}}));
        EXPECT_TRUE(ids.emplace(id).second) << id << " is there twice";
    }

    // A reference to a URI that holds no character which would have to be escaped.
    const auto location = [&](const char* name, Json rest) {
        rest["artifactLocation"]["uri"] = "file://" + home_ / name;
        return Json::array({{{"physicalLocation", rest}}});
    };
    const auto result = [&](ErrorReason reason, const char* region) {
        return Json{{"ruleIndex", static_cast<size_t>(reason)},
                    {"ruleId", errorReason(reason).id},
                    {"message", {{"text", errorReason(reason).text}}},
                    {"level", "error"},
                    {"locations", location("a%20%22b%22%23%C3%A9.klt", {{"region", Json::parse(region)}})}};
    };
    EXPECT_EQ(run.at("results"),
              Json::array({result(ErrorReason::KeywordOfNeeds,
                                  R"({"startLine": 2, "startColumn": 27, "endLine": 2, "endColumn": 32})"),
                           result(ErrorReason::SubsectionNotClosed,
                                  R"({"startLine": 3, "startColumn": 1, "endLine": 3, "endColumn": 3})")}));
    const Json failure = {{"level", "error"},
                          {"message", {{"text", "No such file or directory"}}},
                          {"locations", location("none.klt", Json::object())}};
    const Json failed = {{"executionSuccessful", false},
                         {"toolExecutionNotifications", Json::array({failure})}};
    EXPECT_EQ(run.at("invocations"), Json::array({failed}));
}

TEST_F(JsonReports, SarifWithoutFindings) {
    const auto log = checked("sarif", {clean_}, 0);
    EXPECT_EQ(log["runs"][0].at("results"), Json::array());
    EXPECT_EQ(log["runs"][0].at("invocations"), Json::parse(R"([{"executionSuccessful": true}])"));
}

}  // namespace
}  // namespace klt
