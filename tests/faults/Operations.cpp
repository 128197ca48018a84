// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "faults/Operations.h"

#include "animation/mdlAniScript.h"
#include "charset/Command.h"
#include "editing/KeyMapFile.h"
#include "faults/Answers.h"
#include "glyphs/GifPicture.h"
#include "glyphs/mdlData.h"
#include "scripts/mdlBind.h"
#include "scripts/mdlConfig.h"
#include "scripts/mdlMacro.h"
#include "scripts/mdlName.h"
#include "shell/RecoveryFile.h"
#include "shell/mdlLaunch.h"
#include "shell/mdlRegistry.h"
#include "thumbnail/Command.h"
#include "ui/CopyNotes.h"
#include "ui/FileWriter.h"
#include "ui/linux/FreedesktopFileTypes.h"
#include "ui/qt/IniSettingsStore.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <utility>

namespace faults {

namespace {

Report ReportOf(const ui::Status& status) {
    return {status.ok(), status ? "" : status.failure().message};
}

editing::NameDocument PlayersName() {
    editing::NameDocument name;
    for (std::size_t i = 0; i < 6; ++i) {
        name.cells[i] = static_cast<glyphs::GlyphCode>(200 + i);
    }
    return name;
}

/// What an operation finds where it writes.
enum class Found { Absent, Alone, WithTwoNames, BehindALink };

struct Target {
    Found found;
    const char* text;
};

constexpr Target Absent{Found::Absent, ", new"};
constexpr Target Alone{Found::Alone, ", replaced"};
constexpr Target WithTwoNames{Found::WithTwoNames, ", of two names"};
constexpr Target BehindALink{Found::BehindALink, ", behind a link"};

void PutTarget(const World& world, const std::string& name, Found found, const std::string& bytes) {
    if (found == Found::Absent) {
        return;
    }
    if (found == Found::BehindALink) {
        world.game.put("real-" + name, bytes);
        std::filesystem::create_symlink("real-" + name, world.game / name);
        return;
    }
    world.game.put(name, bytes);
    if (found == Found::WithTwoNames) {
        std::filesystem::create_hard_link(world.game / name, world.game / ("other-" + name));
    }
}

/// An operation on one file in the game's folder.
Operation OnFile(
    const std::string& title, const std::string& file, Target target, const std::string& before,
    const std::function<Report(World&, const ui::Path&)>& run) {
    return {
        .name = title + target.text,
        .prepare = [=](World& world) { PutTarget(world, file, target.found, before); },
        .run = [=](World& world) { return run(world, world.game / file); },
        .targets = [=](const World& world) { return std::vector<ui::Path>{world.game / file}; },
        .isSilent = false,
        .keepsOld = false,
        .isUsable = {}};
}

void AddScripts(std::vector<Operation>& operations) {
    for (const Target target : {Absent, Alone, WithTwoNames, BehindALink}) {
        operations.push_back(OnFile(
            "save a name script", "a.vtn", target, "// Name File Created by Vortigo\r\nname \"old\"\r\n",
            [](World& world, const ui::Path& path) {
                Answers answers(path);
                const editing::NameDocument name = PlayersName();
                (void)editing::SaveScript(answers, world.files, scripts::NameWriter(name), world.game.path());
                return answers.report();
            }));
    }
    for (const Target target : {Absent, Alone}) {
        operations.push_back(OnFile(
            "save an animation", "a.vta", target, "// Animation File Created by Vortigo\r\n",
            [](World& world, const ui::Path& path) {
                Answers answers(path);
                const editing::AnimationDocument animation;
                const auto saved = editing::SaveScript(
                    answers, world.files, animation::AnimationWriter(animation), world.game.path());
                return answers.report(saved.statusText);
            }));
        operations.push_back(OnFile(
            "save messages", "a.vtm", target, "// Message File Created by Vortigo\r\n",
            [](World& world, const ui::Path& path) {
                Answers answers(path);
                editing::MessageDocument messages;
                (void)scripts::SaveMessageScript(
                    answers, world.files, {.selected = {true, true, true}, .command = {}}, messages);
                return answers.report();
            }));
    }
}

void AddConfigs(std::vector<Operation>& operations) {
    const std::string config =
        "bind \"F1\" \"exec old.vtn\"\r\nname \"old\"\r\nbind x y\r\n" + std::string(3000, '/') + "\r\n";
    const auto saveName = [](World& world, const ui::Path& path) {
        Answers answers;
        const auto done =
            scripts::SaveNameToConfig(answers, world.files, world.directory, path, PlayersName());
        return answers.report(done.statusText);
    };
    const auto bind = [](World& world, const ui::Path& path) {
        Answers answers;
        for (int key = 0;; ++key) {
            if (scripts::KeyNames[static_cast<std::size_t>(key)] == "F1") {
                const auto done = scripts::BindKey(
                    answers, world.files, world.directory,
                    {.config = path, .script = world.game / "new-and-longer.vtn", .key = key});
                return answers.report(done.statusText);
            }
        }
    };
    for (const Target target : {Alone, WithTwoNames, BehindALink}) {
        operations.push_back(
            OnFile("replace a configuration's name", "config.cfg", target, config, saveName));
        operations.push_back(OnFile("replace a binding", "config.cfg", target, config, bind));
    }
    const std::string nothing = "fov 90\r\n";
    for (const Target target : {Absent, Alone, WithTwoNames}) {
        operations.push_back(
            OnFile("add a name to a configuration", "config.cfg", target, nothing, saveName));
        operations.push_back(OnFile("add a binding", "config.cfg", target, nothing, bind));
    }
}

void AddProgramsFiles(std::vector<Operation>& operations) {
    const auto keyMap = [](const World& world) {
        return std::vector<ui::Path>{world.directory.folder() / editing::KeyMapName};
    };
    const auto writeKeys = [](World& world) {
        editing::KeyMaps keys;
        keys.inFile = editing::DefaultKeyMap();
        keys.used[3] = {1, 2, 3};
        return ReportOf(editing::WriteKeyMap(world.files, world.directory, keys));
    };
    operations.push_back({"write the key map, new", [](World&) {}, writeKeys, keyMap});
    operations.push_back(
        {"write the key map, replaced",
         [](World& world) {
             world.directory.files.put("vtmkeys.ini", editing::KeyMapText(editing::DefaultKeyMap()));
         },
         writeKeys, keyMap});
    operations.push_back(
        {"write the key map, damaged", [](World& world) { world.directory.files.put("vtmkeys.ini", "1,2"); },
         writeKeys, keyMap, false, true});

    const auto settings = [](const World& world) {
        return std::vector<ui::Path>{world.home / "VTM" / "VTM.ini"};
    };
    const auto save = [](World& world) {
        ui::qt::IniSettingsStore store(world.files, world.home / "VTM" / "VTM.ini");
        store.write("options", "color2", "7");
        store.write("NameFiles", "RecentFile1", "/home/me/a.vtn");
        return ReportOf(store.save());
    };
    for (const auto& [title, content] : std::vector<std::pair<std::string, std::string>>{
             {"replaced", "[options]\ncolor1=1\ncolor2=2\n"},
             {"damaged", "[options]\ncolor1=1\nno setting\n"}}) {
        operations.push_back(
            {"save the settings, " + title,
             [before = content](World& world) { world.home.put("VTM/VTM.ini", before); }, save, settings,
             false, title == "damaged"});
    }
    operations.push_back({"save the settings, new", [](World&) {}, save, settings});
}

ui::Picture SmallPicture(unsigned shade) {
    ui::Picture picture(128, 128);
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 128; ++x) {
            picture.setPixel(x, y, ui::OpaquePixel(static_cast<unsigned>(x / 8), y < 64 ? 9U : 200U, shade));
        }
    }
    return picture;
}

void PutCharSet(const World& world) {
    world.directory.files.put(
        "vtmtc.dat",
        glyphs::EncodeCharSetRecord({.listIndex = 0, .name = "Old", .webAddress = "", .artworkSlot = 0}));
    ui::Bytes slot = glyphs::EncodeGif(SmallPicture(0)).value();
    slot.resize(glyphs::ArtworkSlotSize, '\0');
    world.directory.files.put("vtmgrid.dat", slot);
    world.game.put("new.gif", glyphs::EncodeGif(SmallPicture(1)).value());
    world.game.put("a.vtn", "// Name File Created by Vortigo\r\nname \"player\"\r\n");
}

template <class Command>
Report RunTool(Command command, World& world, const std::vector<std::string>& arguments) {
    std::ostringstream output;
    std::ostringstream errors;
    const int end = command(arguments, world, output, errors);
    return {end == 0, output.str() + errors.str()};
}

Report RunCharSet(World& world, const std::vector<std::string>& arguments) {
    return RunTool(
        [](const auto& list, World& where, std::ostream& output, std::ostream& errors) {
            return charset::RunCommand(list, {where.files, where.directory, output, errors, 80});
        },
        world, arguments);
}

/// Whether every character set of the list has a picture.
bool HasAllPictures(World& world) {
    const auto count = glyphs::LoadCharSetNames(world.files, world.directory).size();
    bool hasAll = count > 0;
    for (std::size_t index = 0; index < count; ++index) {
        const auto record =
            glyphs::ReadCharSetRecord(world.files, world.directory, static_cast<int>(index) + 1);
        hasAll = hasAll && record &&
                 glyphs::LoadArtwork(world.files, world.directory, record.value().artworkSlot).ok();
    }
    return hasAll;
}

void AddTools(std::vector<Operation>& operations) {
    const auto sets = [](const World& world) {
        return std::vector<ui::Path>{
            world.directory.folder() / "vtmtc.dat", world.directory.folder() / "vtmgrid.dat"};
    };
    operations.push_back(
        {"add a character set", PutCharSet,
         [](World& world) {
             return RunCharSet(world, {"add", "New", (world.game / "new.gif").native()});
         },
         sets, false, false, HasAllPictures});
    operations.push_back(
        {"remove a character set",
         [](World& world) {
             PutCharSet(world);
             (void)RunCharSet(world, {"add", "New", (world.game / "new.gif").native()});
         },
         [](World& world) {
             return RunCharSet(world, {"remove", "New"});
         },
         sets, false, false, HasAllPictures});
    for (const bool isThere : {false, true}) {
        const std::string how = isThere ? ", replaced" : ", new";
        operations.push_back(
            {"export a character set" + how,
             [isThere](World& world) {
                 PutCharSet(world);
                 PutTarget(world, "x.png", isThere ? Found::Alone : Found::Absent, "a picture of the user");
             },
             [](World& world) {
                 return RunCharSet(world, {"export", "1", (world.game / "x.png").native()});
             },
             [](const World& world) {
                 return std::vector<ui::Path>{world.game / "x.png"};
             }});
        operations.push_back(
            {"draw a thumbnail" + how,
             [isThere](World& world) {
                 PutCharSet(world);
                 PutTarget(world, "x.png", isThere ? Found::Alone : Found::Absent, "a picture of the user");
             },
             [](World& world) {
                 return RunTool(
                     [](const auto& list, World& where, std::ostream& output, std::ostream& errors) {
                         return thumbnail::RunCommand(list, {where.files, where.directory, output, errors});
                     },
                     world, {(world.game / "a.vtn").native(), (world.game / "x.png").native()});
             },
             [](const World& world) {
                 return std::vector<ui::Path>{world.game / "x.png"};
             }});
    }
}

void AddWork(std::vector<Operation>& operations) {
    const auto stateOf = [](const char* name) {
        shell::WorkState state;
        std::copy_n(name, 3, state.documents.name.cells.begin());
        return state;
    };
    const auto file = [](const World& world) {
        return world.home / "state" / "left.work";
    };
    operations.push_back(
        {"keep what stands on the pages",
         [=](World& world) {
             world.home.put("state/left.work", shell::EncodeWorkState(stateOf("old")));
             world.home.put("state/left.lock", "");
         },
         [=](World& world) {
             shell::RecoveryFile recovery(world.files, world.home / "state");
             if (const auto left = recovery.claimLeftOver()) {
                 recovery.adoptLeftOver(*left);
             }
             return ReportOf(recovery.keep(stateOf("new")));
         },
         [=](const World& world) { return std::vector<ui::Path>{file(world)}; }, true, false});
}

void AddDesktop(std::vector<Operation>& operations) {
    for (const bool isThere : {false, true}) {
        operations.push_back(
            {std::string("write a shortcut") + (isThere ? ", replaced" : ", new"),
             [isThere](World& world) {
                 if (isThere) {
                     world.directory.files.put(
                         "temphtm.url", shell::ShortcutText("https://old.example.org/"));
                 }
             },
             [](World& world) {
                 return ReportOf(ui::WriteFile(
                     world.files, world.directory.toWrite(shell::ScratchShortcutName),
                     shell::ShortcutText("https://example.org/"), ui::Links::Replace));
             },
             [](const World& world) {
                 return std::vector<ui::Path>{world.directory.folder() / "temphtm.url"};
             }});
        operations.push_back(
            {std::string("register the file types") + (isThere ? ", replaced" : ", new"),
             [isThere](World& world) {
                 if (isThere) {
                     ui::native::FreedesktopFileTypes types(world.home / "data", "/usr/bin/old-vtm");
                     shell::WriteFileAssociations(types, "/usr/bin");
                 }
             },
             [](World& world) {
                 // Any program that is there, at the same path in every case.
                 const ui::Path program = "/bin/sh";
                 ui::native::FreedesktopFileTypes types(world.home / "data", program);
                 types.registerTypes(shell::FileAssociations(program.parent_path()), program);
                 return Report{true, ""};
             },
             [](const World& world) {
                 std::vector<ui::Path> files{world.home / "data/mime/packages/vtm.xml"};
                 for (const char* name : {"name", "animation", "message"}) {
                     files.push_back(
                         world.home / "data/applications" / (std::string("vtm-") + name + ".desktop"));
                 }
                 return files;
             },
             true, false});
    }
}

} // namespace

std::vector<Operation> AllOperations() {
    std::vector<Operation> operations;
    AddScripts(operations);
    AddConfigs(operations);
    AddProgramsFiles(operations);
    AddTools(operations);
    AddWork(operations);
    AddDesktop(operations);
    return operations;
}

std::string NextStart(World& world) {
    Answers answers;
    ui::TellOfKeptCopies(answers, world.files);
    return answers.report().messages;
}

} // namespace faults
