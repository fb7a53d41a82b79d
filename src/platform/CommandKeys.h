#pragma once

// The key of each command: the object name of its menu items and buttons, and what runs it.
namespace klt::commands {

inline constexpr char kNew[] = "F1";
inline constexpr char kOpen[] = "F2";
inline constexpr char kClose[] = "F3";
inline constexpr char kSave[] = "F4";
inline constexpr char kSaveAs[] = "F5";
inline constexpr char kExit[] = "F6";

inline constexpr char kUndo[] = "E1";
inline constexpr char kCut[] = "E2";
inline constexpr char kCopy[] = "E3";
inline constexpr char kPaste[] = "E4";
inline constexpr char kDelete[] = "E5";
inline constexpr char kEditLine[] = "E6";
inline constexpr char kSelectAll[] = "E7";
inline constexpr char kFind[] = "E8";
inline constexpr char kReplace[] = "E9";

inline constexpr char kAdvantageWizard[] = "I1";
inline constexpr char kSkillWizard[] = "I2";
inline constexpr char kSpellWizard[] = "I3";
inline constexpr char kStatWizard[] = "I4";
inline constexpr char kBonusWizard[] = "I5";
inline constexpr char kGroupWizard[] = "I6";
inline constexpr char kModWizard[] = "I7";
inline constexpr char kAuthorWizard[] = "I8";
inline constexpr char kPackageWizard[] = "I9";
inline constexpr char kCommentLine[] = "I10";
inline constexpr char kComment[] = "I11";

inline constexpr char kDefaultToolbar[] = "mnuTTDefault";
inline constexpr char kWizardsToolbar[] = "mnuTTWizards";

inline constexpr char kPreferences[] = "T1";
inline constexpr char kProgramPaths[] = "T2";
inline constexpr char kAuthorList[] = "T3";
inline constexpr char kEditorFormat[] = "T4";
inline constexpr char kMerger[] = "T5";
inline constexpr char kSyntaxChecker[] = "T6";

inline constexpr char kTileHorizontally[] = "W1";
inline constexpr char kTileVertically[] = "W2";
inline constexpr char kCascade[] = "W3";
inline constexpr char kArrangeIcons[] = "W4";
inline constexpr char kPreviousDocument[] = "W5";
inline constexpr char kNextDocument[] = "W6";
inline constexpr char kCheckerWindow[] = "W7";

inline constexpr char kMoreDocuments[] = "D9";

inline constexpr char kContents[] = "H1";
inline constexpr char kSearchHelp[] = "H2";
inline constexpr char kTips[] = "H3";
inline constexpr char kHomePage[] = "H4";
inline constexpr char kDataFilesPage[] = "H5";
inline constexpr char kAddOnsPage[] = "H6";
inline constexpr char kDocsPage[] = "H7";
inline constexpr char kHarborPage[] = "H8";
inline constexpr char kHarborPrograms[] = "H9";
inline constexpr char kAbout[] = "H10";

/// Stands in a popup alone.
inline constexpr char kMailTo[] = "MailTo";

}  // namespace klt::commands
