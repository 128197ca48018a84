// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "SessionRun.h"
#include "animation/mdlAniName.h"
#include "animation/mdlAniScript.h"
#include "animation/mdlAniWizard.h"

#include <array>
#include <random>
#include <utility>

namespace {

using editing::CursorOf;
using editing::Documents;
using editing::Page;

/// Commands of every kind in a random order, run as the window runs them.
class RandomSession : public SessionRun, public testing::WithParamInterface<unsigned> {
protected:
    RandomSession() {
        for (const char* name : {"vtmani01.dat", "vtmani02.dat"}) {
            fake.directory.files.put(name, fake.disk.read(ui::Path(VTM_PROGRAM_DIR) / name).value());
        }
        view.documentShown = [this](Page page) {
            paintAddedNames(page);
        };
    }

    int upTo(int last) { return std::uniform_int_distribution<int>(1, last)(m_random); }

    Page anyPage() { return static_cast<Page>(upTo(3) - 1); }

    glyphs::GlyphCode glyph() {
        return static_cast<glyphs::GlyphCode>(upTo(3) == 1 ? glyphs::BlankGlyph : upTo(255));
    }

    /// Does something and returns its name.
    std::string command();
    void format(editing::FormatOperation operation);
    void loadAnimation();
    void buildAnimation();
    std::string changeNameList();

    /// The documents as if their cursors had never moved.
    static Documents contentOf(Documents documents) {
        for (const editing::Kind& kind : editing::Kinds) {
            const editing::PageCursor place = CursorOf(documents, kind.page);
            place.column = 1;
            place.row = 1;
        }
        return documents;
    }

    /// The pages on which two contents differ.
    static std::vector<Page> changedPages(const Documents& one, const Documents& other) {
        const std::array isSame{
            one.name == other.name, one.animation == other.animation, one.messages == other.messages};
        std::vector<Page> pages;
        for (const editing::Kind& kind : editing::Kinds) {
            if (!isSame.at(static_cast<std::size_t>(kind.page))) {
                pages.push_back(kind.page);
            }
        }
        return pages;
    }

    /// Whether the cursors of some pages are the same.
    static bool haveSameCursors(Documents& one, Documents& other, const std::vector<Page>& pages) {
        return std::ranges::all_of(pages, [&](Page page) {
            const editing::PageCursor here = CursorOf(one, page);
            const editing::PageCursor there = CursorOf(other, page);
            return here.column == there.column && here.row == there.row;
        });
    }

    std::mt19937 m_random{GetParam()};

private:
    /// Names that come into use are painted once their page shows how many there are.
    void paintAddedNames(Page page) {
        if (page == Page::Animation) {
            const int before = std::exchange(m_shownNames, documents().animation.nameCount);
            if (m_shownNames > before) {
                editing::PaintRowsFrom(session.painter(), Page::Animation, before + 1);
            }
        }
    }

    int m_shownNames = editing::MinNames;
};

void RandomSession::format(editing::FormatOperation operation) {
    if (session.page() != Page::Name) {
        fake.dialogs.expectBox(
            {session.page() == Page::Animation ? "Do you wish to format all names?"
                                               : "Do you wish to format all macros?",
             ui::Buttons::YesNoCancel, ui::Icon::None, "No or Cancel: only the current one."},
            upTo(2) == 1 ? ui::Answer::Yes : ui::Answer::No);
    }
    session.finish(editing::FormatPage(session.cursor(), fake.dialogs, {}, operation));
}

void RandomSession::loadAnimation() {
    editing::AnimationDocument animation;
    animation.nameCount = 14 + upTo(76);
    for (glyphs::GlyphCode& code : animation.nameGlyphs) {
        code = static_cast<glyphs::GlyphCode>('a' + upTo(20));
    }
    ui::Bytes script = animation::EncodeAnimationScript(animation, animation::NameCommand::Name);
    if (upTo(2) == 1) {
        // Broken off in the middle of a name: what stands before it has been read.
        script.resize(script.size() / 2);
    }
    const ui::Path path = fake.directory.files.put("random.vta", script);
    fake.dialogs.expectOpen(OpenDialog(Page::Animation), path);
    if (animation::DecodeAnimationScript(script, animation).end == animation::ScriptEnd::Read) {
        fake.dialogs.expectInform("Done! " + ui::PathText(path) + " was read succesfully.");
    }
    files.loadScript(Page::Animation);
    if (view.offersReadNames && upTo(2) == 1) {
        session.showReadNames();
    }
}

void RandomSession::buildAnimation() {
    animation::WizardChoices choices;
    choices.firstPosition = upTo(3);
    choices.color = upTo(3) - 1;
    choices.nameToUse = upTo(90);
    choices.startName = upTo(76);
    const auto outcome = animation::BuildAnimation(
        documents().animation, choices, glyphs::CaseChoice::LettersOnly, fake.files, fake.directory);
    EXPECT_EQ(outcome.end, animation::BuildEnd::Built);
    session.switchTo(Page::Animation);
    session.repaint(Page::Animation);
    session.refresh();
}

std::string RandomSession::changeNameList() {
    constexpr std::array<std::pair<const char*, editing::Change (*)(editing::AnimationDocument&)>, 4>
        Operations{{
            {"Insert Name", animation::InsertName},
            {"Delete Name", animation::DeleteName},
            {"Move Name", animation::MoveNameUp},
            {"Move Name", animation::MoveNameDown},
        }};
    editing::AnimationDocument& animation = documents().animation;
    if (const int choice = upTo(6); choice <= 4) {
        const auto& [name, operation] = Operations.at(static_cast<std::size_t>(choice - 1));
        session.switchTo(Page::Animation);
        const auto running = session.running(name);
        session.finish(operation(animation));
        return name;
    } else if (choice == 5) {
        const auto running = session.running("Total");
        animation::SetNameCount(animation, 14 + upTo(76));
        session.refreshPage(Page::Animation);
        return "Total";
    }
    const auto running = session.running("Ticks");
    const auto ticks = static_cast<std::int16_t>(upTo(15));
    if (upTo(2) == 1) {
        animation::SetAllTicks(animation, ticks);
    } else {
        animation::SetTicks(animation, upTo(90), ticks);
    }
    session.refreshPage(Page::Animation);
    return "Ticks";
}

std::string RandomSession::command() {
    constexpr std::array Keys{editing::KeyBackspace, editing::KeyDelete, editing::KeyEnter,
                              editing::KeyHome,      editing::KeyUp,     editing::KeyLeft};
    constexpr std::array<std::pair<const char*, editing::FormatOperation>, 4> Formats{{
        {"Align Right", editing::FormatOperation::AlignRight},
        {"Align Center", editing::FormatOperation::AlignCenter},
        {"Switch Case", editing::FormatOperation::SwitchCase},
        {"Reverse Character Order", editing::FormatOperation::ReverseCharacters},
    }};
    editing::EditClipboard& clipboard = session.workspace().editClipboard;
    const editing::PageCursor cursor = session.cursor();
    const auto run = [this](std::string_view name, const auto& change) {
        const auto running = session.running(name);
        change();
        return std::string(name);
    };
    switch (upTo(22)) {
    case 1:
    case 2:
    case 3:
        return run("Name", [&] { session.switchTo(anyPage()); });
    case 4:
        cursor.column = upTo(cursor.rows.width());
        cursor.row = upTo(cursor.rowsInUse);
        session.refresh();
        return "";
    case 5:
        session.setMode(1, !session.workspace().settings.modes.insert);
        return "";
    case 6:
    case 7:
        return run("Delete", [&] {
            session.finish(editing::NavigateKey(cursor, Keys.at(static_cast<std::size_t>(upTo(6) - 1))));
        });
    case 8:
        return run("Cut", [&] { session.finish(editing::CutRow(cursor, clipboard)); });
    case 9:
        return run("Paste", [&] { session.finish(editing::PasteRow(cursor, clipboard)); });
    case 10:
        return run("Copy", [&] {
            editing::CopyRow(cursor, clipboard);
            session.refresh();
        });
    case 11: {
        const auto& [name, operation] = Formats.at(static_cast<std::size_t>(upTo(4) - 1));
        return run(name, [this, operation = operation] { format(operation); });
    }
    case 12:
        return run("Reverse Name Order", [&] { session.finish(editing::ReverseNameOrder(cursor)); });
    case 13:
        return upTo(3) == 1 ? run("Load", [&] { loadAnimation(); }) : changeNameList();
    case 14:
        return upTo(3) == 1 ? run("Wizard", [&] { buildAnimation(); }) : changeNameList();
    case 15:
        return run("New", [&] { files.newDocument(anyPage()); });
    default:
        return run(shell::History::Typing, [&] {
            session.finish(editing::PutGlyph(cursor, session.workspace().settings.modes, glyph()));
        });
    }
}

} // namespace

TEST_P(RandomSession, IsUndoneToItsStartAndRedoneToItsEnd) {
    constexpr int Commands = 5000;
    startOn(Page::Name);
    std::vector<Documents> was{documents()};
    std::vector<Documents> contents{contentOf(documents())};
    int others = 0; // commands that changed something and are no typing
    for (int i = 1; i <= Commands; ++i) {
        const std::string name = command();
        was.push_back(documents());
        contents.push_back(contentOf(documents()));
        if (contents.back() != contents[contents.size() - 2]) {
            ASSERT_NE(session.history().undoCommand(), nullptr);
            EXPECT_EQ(*session.history().undoCommand(), name);
            others += name == shell::History::Typing ? 0 : 1;
        }
        ASSERT_TRUE(i % 10 != 0 || view.offersReadNames || isPainted()) << name << ", command " << i;
        view.shown.clear();
        fake.sounds.waves.clear();
    }
    EXPECT_GT(others, 1000);
    session.showReadNames();

    // Every step leads to what the documents held earlier, with the cursor of that time.
    std::size_t place = was.size() - 1;
    int steps = 0;
    std::vector<Documents> undone;
    while (session.history().undoCommand() != nullptr) {
        undone.push_back(contentOf(documents()));
        session.undo();
        ++steps;
        const Documents content = contentOf(documents());
        const std::vector<Page> pages = changedPages(undone.back(), content);
        do {
            ASSERT_GT(place, 0U) << "step " << steps << " leads to what never was";
            --place;
        } while (contents[place] != content || !haveSameCursors(documents(), was[place], pages));
        ASSERT_TRUE(isPainted()) << "step " << steps;
    }
    EXPECT_GE(steps, others);
    EXPECT_EQ(contentOf(documents()), contents.front());

    while (session.history().redoCommand() != nullptr) {
        ASSERT_FALSE(undone.empty());
        session.redo();
        ASSERT_EQ(contentOf(documents()), undone.back());
        ASSERT_TRUE(isPainted()) << "of " << undone.size();
        undone.pop_back();
    }
    EXPECT_TRUE(undone.empty());
    EXPECT_EQ(contentOf(documents()), contents.back());

    // And back again: the cursors too are those of the first time.
    const Documents redone = documents();
    while (session.history().undoCommand() != nullptr) {
        session.undo();
    }
    while (session.history().redoCommand() != nullptr) {
        session.redo();
    }
    EXPECT_EQ(documents(), redone);
    EXPECT_TRUE(isPainted());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomSession, testing::Values(1U, 20031U, 77U));
