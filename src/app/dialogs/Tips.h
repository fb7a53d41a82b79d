#pragma once

#include <array>
#include <string_view>

namespace klt {

/// What the window of tips tells, in its order.
inline constexpr auto kTipTexts = std::to_array<std::string_view>({
    "That KLT Editor automatically adds a \")\" if you type a \"(\"?",
    "That KLT Editor has a collection of @Function wizards that may help you to create a data file without "
    "reading the Filespec?",
    "That if you right-click the text-editing area of KLT Editor the Insert Menu will be displayed?",
    "That you can turn the toolbars on and off by right-clicking them?",
    "That the Author Wizard has three different templates for the Copyright Information of your data file?",
    "That you can turn these annoying tips off by clicking the check-box bellow?",
    "That if you associate the data files (*.klt) to KLT Editor, and right-click them, KLT Editor will open "
    "them?",
    "That the filename you specify at the Author Wizard is used when you click Save? (note: this is "
    "currently not working for some reason I can't find, but I'm trying to fix it)",
    "That you can change the path of your data files, so KLT Editor will always open in their folder?",
    "That Author Wizard saves the last author profile used, so you don't have to type it over and over?",
    "That KLT Editor has author profiles, containing name and up to three e-mails, to be used in Author "
    "Wizard? You can edit them in the Options dialog.",
    "That if you type you name and e-mail(s) in the Author Wizard, and you're not in the author profiles, "
    "you and your contact info will be automatically saved?",
    "That the Packages Wizard is the most comprehensive wizard in KLT Editor? It can load all other wizards "
    "if you need so (and load the items you have created in them!), and it offers you the option to preview "
    "messages as they will appear in TVM.",
    "That you can send comments, suggestions and bug reports directly to me? I will do my best to correct "
    "any bugs, add any new features and listen to any comments you send me. For contact info, see the about "
    "box or the Options dialog under Author Profiles.",
    "That, whenever you type text in a drop-down list, KLT Editor will search by similarity in the lists "
    "items and complete the text for you? And that you can customize this feature? See AutoComplete at the "
    "Options dialog.",
    "That KLT Editor can nest a customizable amount of @Functions in each part of the original @Function?",
    "That KLT Editor has a customizable MRU list?",
    "That, if you press Ctrl+L on the main window, KLT Editor will load that item (or package, or group or "
    "bonus) for you in the appropriate wizard? See help for further details.",
    "That, if you press Ctrl+L on the Preview textbox of the Bonus, Group or Package wizards, KLT Editor "
    "will load that line on the appropriate tab? See help for further information.",
    "That KLT Editor features a customizable LineBreaker engine? Check the Options window for details!",
    "That you can load data files on KLT Editor by double-clicking them in the Windows Explorer? If KLt "
    "Editor is already opened, the files you double-clicked will be loaded in that instance.",
    "That you can now add KLT Editor to the TVM Add-Ons menu or to the TVM toolbar with the click of a "
    "button? Check the Options window!",
    "That KLT Editor now features a KLT Syntax Checker? Read the WhatsNew file or the help for more "
    "information.",
    "That KLT Editor now features a KLT Merger?",
    "That KLT Editor's Syntax Checker is now integrated into all wizards? Real time Syntax Checking as you "
    "type!",
});
static_assert(kTipTexts.size() == 25);

}  // namespace klt
