// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/FileWriter.h"
#include "ui/System.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

const std::string Old = "the old content\r\n";
const std::string New(100'000, 'x');

/// A drive that is full but for what a file has that is there already.
class SmallVolume : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(drive.empty());
        ASSERT_TRUE(files.list(drive).empty());
        ASSERT_TRUE(ui::WriteFile(files, path, Old));
        auto opened = files.open(rest, ui::Files::OpenMode::CreateNew);
        ASSERT_TRUE(opened);
        const std::string block(4096, '\0');
        ui::Status written;
        while (written.ok()) {
            written = opened.value()->write(block);
        }
        EXPECT_EQ(written.failure().message, told("write", rest));
    }

    void TearDown() override {
        for (const std::string& name : files.list(drive)) {
            EXPECT_TRUE(files.remove(drive / name));
        }
    }

    static std::string told(const std::string& step, const ui::Path& file) {
        return "Could not " + step + " \"" + ui::PathText(file) + "\": No space left on device.";
    }

    [[nodiscard]] std::string content() const { return files.read(path).value(); }

    /// Frees what others have of the drive.
    void makeRoom() { EXPECT_TRUE(files.remove(rest)); }

    ui::Path drive = ui::FolderVariable("VTM_SMALL_VOLUME");
    ui::Path path = drive / "config.cfg";
    ui::Path rest = drive / "rest";
    ui::DiskFiles files;
};

TEST_F(SmallVolume, KeepsTheOldFileThatIsToBeReplaced) {
    const auto written = ui::WriteFile(files, path, New);
    ASSERT_FALSE(written);
    EXPECT_TRUE(written.failure().message.starts_with(told("write", path))) << written.failure().message;
    EXPECT_EQ(content(), Old);
    EXPECT_EQ(files.list(drive).size(), 2U) << "what is of no use is left behind";
    makeRoom();
    EXPECT_TRUE(ui::WriteFile(files, path, New));
    EXPECT_EQ(content(), New);
}

TEST_F(SmallVolume, KeepsTheOldFileThatIsToBeWrittenOver) {
    std::filesystem::create_hard_link(path, drive / "other.cfg");
    const auto written = ui::WriteFile(files, path, New);
    ASSERT_FALSE(written);
    EXPECT_NE(written.failure().message.find("No space left on device."), std::string::npos)
        << written.failure().message;
    EXPECT_EQ(content(), Old);
    EXPECT_EQ(files.list(drive).size(), 3U) << "what is of no use is left behind";
    makeRoom();
    EXPECT_TRUE(ui::WriteFile(files, path, New));
    EXPECT_EQ(files.read(drive / "other.cfg").value(), New);
}

TEST_F(SmallVolume, HasNoHalfOfANewFile) {
    EXPECT_FALSE(ui::WriteFile(files, drive / "new.cfg", New));
    EXPECT_FALSE(ui::WritePrivateCopy(files, drive / "copy.cfg", New));
    EXPECT_EQ(files.list(drive).size(), 2U);
}

} // namespace
