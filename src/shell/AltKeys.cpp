// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/AltKeys.h"

#include <algorithm>
#include <array>

namespace shell {

namespace {

using enum AltCommand;
using enum ui::VirtualKey;
using Shift = AltKey::Shift;

// Plus and minus need Shift on some keyboards, so they do not ask for it.
constexpr std::array<AltKey, 32> Keys{{
    {KeyDigit0 + 1, Shift::Up, PlaceFavourite, 0, "Alt+1", "cmdFavorite_0"},
    {KeyDigit0 + 2, Shift::Up, PlaceFavourite, 1, "Alt+2", "cmdFavorite_1"},
    {KeyDigit0 + 3, Shift::Up, PlaceFavourite, 2, "Alt+3", "cmdFavorite_2"},
    {KeyDigit0 + 4, Shift::Up, PlaceFavourite, 3, "Alt+4", "cmdFavorite_3"},
    {KeyDigit0 + 5, Shift::Up, PlaceFavourite, 4, "Alt+5", "cmdFavorite_4"},
    {KeyDigit0 + 1, Shift::Down, ChangeFavourite, 0, "Alt+Shift+1", "cmdFavorite_0"},
    {KeyDigit0 + 2, Shift::Down, ChangeFavourite, 1, "Alt+Shift+2", "cmdFavorite_1"},
    {KeyDigit0 + 3, Shift::Down, ChangeFavourite, 2, "Alt+Shift+3", "cmdFavorite_2"},
    {KeyDigit0 + 4, Shift::Down, ChangeFavourite, 3, "Alt+Shift+4", "cmdFavorite_3"},
    {KeyDigit0 + 5, Shift::Down, ChangeFavourite, 4, "Alt+Shift+5", "cmdFavorite_4"},
    {KeyDigit0 + 6, Shift::Up, PlaceFrequent, 0, "Alt+6", "cmdFrequent_0"},
    {KeyDigit0 + 7, Shift::Up, PlaceFrequent, 1, "Alt+7", "cmdFrequent_1"},
    {KeyDigit0 + 8, Shift::Up, PlaceFrequent, 2, "Alt+8", "cmdFrequent_2"},
    {KeyDigit0 + 9, Shift::Up, CountFrequent, 0, "Alt+9", "cmdCalcFrequent"},
    {'G', Shift::Up, PickGlyph, 0, "Alt+G", "ImgGrid"},
    {'R', Shift::Up, PlaceRightGlyph, 0, "Alt+R", "cmdRightGlyph"},
    {'R', Shift::Down, ChangeRightGlyph, 0, "Alt+Shift+R", "cmdRightGlyph"},
    {'I', Shift::Up, FindGlyph, 0, "Alt+I", ""},
    {'W', Shift::Up, OpenNameTicks, 0, "Alt+W", "ThisTickList"},
    {'L', Shift::Up, OpenAllTicks, 0, "Alt+L", "TickList"},
    {KeyEquals, Shift::Either, MoreNames, 0, "Alt+Plus", "AniTotalScroll"},
    {KeyPadAdd, Shift::Either, MoreNames, 0, "", "AniTotalScroll"},
    {KeyMinus, Shift::Either, FewerNames, 0, "Alt+Minus", "AniTotalScroll"},
    {KeyPadSubtract, Shift::Either, FewerNames, 0, "", "AniTotalScroll"},
    {'S', Shift::Up, ShowReadNames, 0, "Alt+S", "lblShow"},
    {'U', Shift::Up, RestoreWork, 0, "Alt+U", "lblRestore"},
    {'U', Shift::Down, DiscardWork, 0, "Alt+Shift+U", "lblDiscard"},
    {'K', Shift::Up, GoToLoss, 0, "Alt+K", ""},
    {KeyUp, Shift::Either, ViewLineUp, 0, "Alt+Up", "VScroll1"},
    {KeyDown, Shift::Either, ViewLineDown, 0, "Alt+Down", "VScroll1"},
    {KeyPageUp, Shift::Either, ViewPageUp, 0, "Alt+Page Up", "VScroll1"},
    {KeyPageDown, Shift::Either, ViewPageDown, 0, "Alt+Page Down", "VScroll1"},
}};

bool Fits(Shift wanted, bool isShift) {
    return wanted == Shift::Either || (wanted == Shift::Down) == isShift;
}

} // namespace

std::span<const AltKey> AltKeys() {
    return Keys;
}

const AltKey* FindAltKey(const ui::KeyStroke& stroke) {
    if (!stroke.isAlt || stroke.isCtrl) {
        return nullptr;
    }
    const auto found = std::find_if(Keys.begin(), Keys.end(), [&stroke](const AltKey& key) {
        return key.virtualKey == stroke.virtualKey && Fits(key.shift, stroke.isShift);
    });
    return found == Keys.end() ? nullptr : &*found;
}

std::string AltKeysOf(std::string_view control) {
    std::string text;
    for (const AltKey& key : Keys) {
        if (key.control == control && !key.keys.empty()) {
            text.append(text.empty() ? "" : ", ").append(key.keys);
        }
    }
    return text;
}

} // namespace shell
