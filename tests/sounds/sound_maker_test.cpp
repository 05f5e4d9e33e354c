// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The synthesiser as a whole: reproducible output and clear error messages.

#include "synth/sound_maker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "synth/recipe_parser.h"
#include "synth/staged_recordings.h"
#include "voice/guitar_note.h"

namespace tonalith::synth {
namespace {

const std::filesystem::path kRecipe = std::filesystem::path(TONALITH_SOURCE_DIR) / "content/sounds/guitar.recipe";

std::string Bytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// A temporary folder, removed with its owner.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tonalith-sounds-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
      throw std::runtime_error("no temporary folder");
    }
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

int ExitCodeOf(const std::string& arguments) {
  const std::string command = "\"" TONALITH_MAKE_SOUNDS "\" " + arguments + " 2>/dev/null";
  return WEXITSTATUS(std::system(command.c_str()));
}

TEST(SoundMaker, ReproducesTheShippedFiles) {
  const TemporaryFolder folder;
  const voice::Recipe recipe = ParseRecipe(Bytes(kRecipe));
  for (const voice::SoundSet& set : recipe.sets) MakeSounds(recipe, set.folder, folder.Path());
  int files = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
    if (entry.is_regular_file()) {
      const auto shipped = TONALITH_STAGE / std::filesystem::relative(entry.path(), folder.Path());
      EXPECT_TRUE(Bytes(entry.path()) == Bytes(shipped)) << shipped;
      ++files;
    }
  }
  EXPECT_EQ(files, 64);
}

TEST(SoundMaker, RefusesALevelNearFullScale) {
  const TemporaryFolder folder;
  voice::Recipe recipe = ParseRecipe(Bytes(kRecipe));
  recipe.guitar.levelDecibels = -3.0;
  EXPECT_THROW(MakeSounds(recipe, "Audio", folder.Path()), RecipeError);
}

TEST(SoundMaker, ReadsTheRecipeOfTheProgram) {
  const voice::Recipe read = ParseRecipe(Bytes(kRecipe));
  const voice::Recipe& has = voice::BuiltInRecipe();
  EXPECT_EQ(has.guitar.seed, read.guitar.seed);
  ASSERT_EQ(has.sets.size(), read.sets.size());
  for (std::size_t i = 0; i < has.sets.size(); ++i) {
    EXPECT_EQ(has.sets[i].folder, read.sets[i].folder);
    for (int number = 0; number < read.sets[i].count; ++number) {
      const voice::NoteLength length = LengthOf(read.sets[i], number);
      EXPECT_EQ(LengthOf(has.sets[i], number).seconds, length.seconds);
      if (number % 7 != 0) continue;
      const voice::Pitch pitch = read.sets[i].PitchOf(number);
      EXPECT_EQ(has.sets[i].PitchOf(number), pitch);
      EXPECT_EQ(PlayNote(has.guitar, pitch, length), PlayNote(read.guitar, pitch, length)) << pitch;
    }
  }
}

TEST(SoundMaker, ReportsTheFileThatItCannotWrite) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder.Path() / "Octaves" / "0.wav");
  try {
    MakeSounds(ParseRecipe(Bytes(kRecipe)), "Octaves", folder.Path());
    FAIL() << "a folder was taken for a file";
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(std::string_view(error.what()), "cannot write " + (folder.Path() / "Octaves" / "0.wav").string());
  }
}

TEST(SoundMaker, ExitsWith2ForWrongUsageAndWith1OnFailure) {
  const TemporaryFolder folder;
  const std::string out = "\"" + folder.Path().string() + "\"";
  EXPECT_EQ(ExitCodeOf(""), 2);
  EXPECT_EQ(ExitCodeOf("no-such-recipe Octaves " + out), 1);
  EXPECT_EQ(ExitCodeOf(out + " Octaves " + out), 1);
  EXPECT_EQ(ExitCodeOf("\"" + kRecipe.string() + "\" Bagpipes " + out), 1);
}

/// Recordings made by a build, and a stage with some files.
class StagedRecordings : public testing::Test {
 protected:
  StagedRecordings() {
    std::filesystem::create_directories(made_);
    std::filesystem::create_directories(staged_);
    for (const char* const name : {"0.wav", "1.wav", "2.wav"}) {
      std::filesystem::copy_file(TONALITH_STAGE / std::filesystem::path("Audio") / name, made_ / name);
    }
  }
  static void Write(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }

  TemporaryFolder folder_;
  std::filesystem::path made_ = folder_.Path() / "made";
  std::filesystem::path staged_ = folder_.Path() / "staged" / "Audio";
};

TEST_F(StagedRecordings, AreAddedIfMissing) {
  std::filesystem::remove_all(staged_.parent_path());
  StageRecordings(made_, staged_);
  for (const char* const name : {"0.wav", "1.wav", "2.wav"}) EXPECT_EQ(Bytes(staged_ / name), Bytes(made_ / name));
}

TEST_F(StagedRecordings, ReplaceShippedFilesAndKeepTheUsers) {
  Write(staged_ / "0.wav", Bytes(made_ / "2.wav"));
  Write(staged_ / "1.wav", "the user's own");
  std::string changed = Bytes(made_ / "0.wav");
  changed[20'000] = static_cast<char>(changed[20'000] ^ 1);
  Write(staged_ / "2.wav", changed);
  StageRecordings(made_, staged_);
  EXPECT_EQ(Bytes(staged_ / "0.wav"), Bytes(made_ / "0.wav"));
  EXPECT_EQ(Bytes(staged_ / "1.wav"), "the user's own");
  EXPECT_EQ(Bytes(staged_ / "2.wav"), changed);
}

TEST_F(StagedRecordings, AreNotWrittenAgainIfUpToDate) {
  StageRecordings(made_, staged_);
  const auto old = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
  std::filesystem::last_write_time(staged_ / "0.wav", old);
  StageRecordings(made_, staged_);
  EXPECT_EQ(std::filesystem::last_write_time(staged_ / "0.wav"), old);
}

}  // namespace
}  // namespace tonalith::synth
