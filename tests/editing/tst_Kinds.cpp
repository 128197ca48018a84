// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/Kinds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace editing {
namespace {

/// What the rows hold in one column, from the top.
template <class Value>
std::vector<std::string> TextsOf(Value Kind::*column) {
    std::vector<std::string> texts;
    texts.reserve(Kinds.size());
    for (const Kind& kind : Kinds) {
        texts.emplace_back(kind.*column);
    }
    return texts;
}

template <class Value>
std::array<Value, Kinds.size()> ColumnOf(Value Kind::*column) {
    std::array<Value, Kinds.size()> values{};
    std::ranges::transform(Kinds, values.begin(), [column](const Kind& kind) { return kind.*column; });
    return values;
}

using Texts = std::vector<std::string>;
using Truths = std::array<bool, Kinds.size()>;
using Pages = std::array<Page, Kinds.size()>;
using Places = std::array<std::size_t, Kinds.size()>;
using Settings = std::array<bool FormatSettings::*, Kinds.size()>;

} // namespace

TEST(Kinds, AreFoundByTheirPage) {
    for (const Page page : {Page::Name, Page::Animation, Page::Messages}) {
        EXPECT_EQ(KindOf(page).page, page);
    }
    EXPECT_EQ(Kinds.size(), 3U);
}

TEST(Kinds, AreShownUnderTheirNames) {
    EXPECT_EQ(TextsOf(&Kind::caption), (Texts{"Name", "Animation", "Messages"}));
    EXPECT_EQ(
        TextsOf(&Kind::windowTitle), (Texts{"Vortigo [Name]", "Vortigo [Animation]", "Vortigo [Messages]"}));
    EXPECT_EQ(
        TextsOf(&Kind::formatQuestion),
        (Texts{"", "Do you wish to format all names?", "Do you wish to format all macros?"}));
    EXPECT_TRUE(
        ColumnOf(&Kind::asksBeforeFormat) ==
        (Settings{nullptr, &FormatSettings::asksForNames, &FormatSettings::asksForMessages}));
}

TEST(Kinds, KnowTheirScripts) {
    EXPECT_EQ(
        TextsOf(&Kind::header), (Texts{
                                    "Name File Created by Vortigo", "Animation File Created by Vortigo",
                                    "Macro File Created by Vortigo"}));
    EXPECT_EQ(TextsOf(&Kind::extension), (Texts{".vtn", ".vta", ".vtm"}));
    EXPECT_EQ(TextsOf(&Kind::filter), (Texts{"VTM Name Script", "VTM Animation Script", "VTM Macro Script"}));
    EXPECT_EQ(TextsOf(&Kind::saveTitle), (Texts{"Save as a Script File", "", "Save as a Script File"}));
    EXPECT_EQ(ColumnOf(&Kind::savesInFolder), (Truths{true, true, false}));
    EXPECT_EQ(ColumnOf(&Kind::opensInFolder), (Truths{false, true, false}));
    EXPECT_EQ(ColumnOf(&Kind::tellsFailuresInStatusLine), (Truths{false, true, false}));
    EXPECT_EQ(ColumnOf(&Kind::showsPageWhenSaved), (Truths{false, true, false}));
    EXPECT_EQ(ColumnOf(&Kind::offersBinding), (Truths{true, true, false}));
}

TEST(Kinds, KnowWhatTheProgramIsStartedWith) {
    EXPECT_EQ(TextsOf(&Kind::commandSwitch), (Texts{" /name ", " /animation ", " /macro "}));
    EXPECT_EQ(ColumnOf(&Kind::shownAfterSwitch), (Pages{Page::Animation, Page::Name, Page::Messages}));
    EXPECT_EQ(TextsOf(&Kind::introFile), (Texts{"intro.vtn", "intro.vta", "intro.vtm"}));
}

TEST(Kinds, KnowTheirFileTypes) {
    EXPECT_EQ(TextsOf(&Kind::className), (Texts{"VTM_Name", "VTM_Ani", "VTM_Macro"}));
    EXPECT_EQ(
        TextsOf(&Kind::description),
        (Texts{"Quake Name Script", "Quake Animation Script", "Quake Message Script"}));
    EXPECT_EQ(
        TextsOf(&Kind::mimeType),
        (Texts{"application/x-vtm-name", "application/x-vtm-animation", "application/x-vtm-message"}));
}

TEST(Kinds, KnowTheirControls) {
    EXPECT_EQ(TextsOf(&Kind::newEntry), (Texts{"mnuNewName", "mnuNewAni", "mnuNewMessages"}));
    EXPECT_EQ(TextsOf(&Kind::loadMenu), (Texts{"mnuLoadName", "mnuLoadAni", "mnuLoadMessages"}));
    EXPECT_EQ(
        TextsOf(&Kind::loadEntry), (Texts{
                                       "mnuFileLoadNameFromScriptFile", "mnuFileLoadAniFromScriptFile",
                                       "mnuFileLoadMessagesFromScriptFile"}));
    EXPECT_EQ(TextsOf(&Kind::saveMenu), (Texts{"mnuSaveName", "mnuSaveAni", "mnuSaveMessages"}));
    EXPECT_EQ(
        TextsOf(&Kind::saveEntry), (Texts{"mnuFileSaveName_0", "mnuFileSaveAni_0", "mnuFileSaveMessage"}));
    EXPECT_EQ(
        TextsOf(&Kind::recentMenu), (Texts{"mnuFileRecentName", "mnuFileRecentAni", "mnuFileRecentMacro"}));
    EXPECT_EQ(TextsOf(&Kind::recentCaption), (Texts{"&Recent Name", "Recent &Animation", "Recent &Macro"}));
    EXPECT_EQ(
        TextsOf(&Kind::recentEntry),
        (Texts{"mnuRecentNameFiles", "mnuRecentAniFiles", "mnuRecentMacroFiles"}));
    EXPECT_EQ(TextsOf(&Kind::toolButton), (Texts{"sname", "sani", "smess"}));
}

TEST(Kinds, KnowTheirSettings) {
    EXPECT_EQ(TextsOf(&Kind::recentSection), (Texts{"NameFiles", "AnimFiles", "MacroFiles"}));
    EXPECT_EQ(ColumnOf(&Kind::markerColour), (Places{2, 3, 4}));
    EXPECT_EQ(ColumnOf(&Kind::pointer), (Places{1, 2, 3}));
}

} // namespace editing
