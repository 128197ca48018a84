// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/ScriptRooms.h"

#include "animation/mdlAniScript.h"
#include "scripts/mdlMacro.h"
#include "scripts/mdlName.h"

namespace shell {

namespace {

/// In the order of Page.
constexpr std::array ScriptRooms{
    ScriptRoom{
        [](editing::Documents& documents, const ui::Path& path) {
            return scripts::NameReader(documents.name, path);
        },
        [](const editing::Documents& documents) {
            return scripts::NameWriter(documents.name);
        }},
    ScriptRoom{
        [](editing::Documents& documents, const ui::Path& path) {
            return animation::AnimationReader(documents.animation, path);
        },
        [](const editing::Documents& documents) {
            return animation::AnimationWriter(documents.animation);
        }},
    ScriptRoom{
        [](editing::Documents& documents, const ui::Path& path) {
            return scripts::MessageReader(documents.messages, path);
        },
        nullptr},
};
static_assert(ScriptRooms.size() == editing::Kinds.size());

} // namespace

const ScriptRoom& ScriptRoomOf(editing::Page kind) {
    return ScriptRooms.at(static_cast<std::size_t>(kind));
}

} // namespace shell
