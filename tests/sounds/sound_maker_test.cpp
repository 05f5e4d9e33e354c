// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The synthesiser as a whole: the same bytes again, and plain words where it cannot do its work.

#include "synth/sound_maker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "synth/guitar_note.h"
#include "synth/plucked_string.h"
#include "synth/wav_file.h"

namespace tonalith::synth {
namespace {

const std::filesystem::path kRecipe = std::filesystem::path(TONALITH_SOURCE_DIR) / "content/sounds/guitar.recipe";

std::string Bytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// An empty folder that goes away with its owner.
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

TEST(SoundMaker, MakesTheShippedFilesByteForByteAgain) {
  const TemporaryFolder folder;
  MakeSounds(ParseRecipe(Bytes(kRecipe)), folder.Path());
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

TEST(SoundMaker, PlaysWithAnotherHandWhenTheSeedChanges) {
  Guitar guitar = ParseRecipe(Bytes(kRecipe)).guitar;
  const NoteLength length{0.3, 0.05, 0.01};
  const auto first = PlayNote(guitar, 60, length);
  EXPECT_EQ(first, PlayNote(guitar, 60, length));
  guitar.seed += 1;
  EXPECT_NE(first, PlayNote(guitar, 60, length));
}

TEST(SoundMaker, RefusesALevelThatWouldComeNearFullScale) {
  Guitar guitar = ParseRecipe(Bytes(kRecipe)).guitar;
  guitar.levelDecibels = -3.0;
  EXPECT_THROW(PlayNote(guitar, 60, {0.3, 0.05, 0.01}), RecipeError);
}

TEST(SoundMaker, NamesTheFileThatItCannotWrite) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder.Path() / "Octaves" / "0.wav");
  try {
    MakeSounds(ParseRecipe(Bytes(kRecipe)), folder.Path());
    FAIL() << "a folder was taken for a file";
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(std::string_view(error.what()), "cannot write " + (folder.Path() / "Octaves" / "0.wav").string());
  }
}

TEST(SoundMaker, EndsWithTwoWhenItIsCalledWronglyAndWithOneWhenItFails) {
  const TemporaryFolder folder;
  const std::string out = "\"" + folder.Path().string() + "\"";
  EXPECT_EQ(ExitCodeOf(""), 2);
  EXPECT_EQ(ExitCodeOf("no-such-recipe " + out), 1);
  EXPECT_EQ(ExitCodeOf(out + " " + out), 1);
}

TEST(PluckedString, LosesSixtyDecibelsInTheSecondsThatItIsGiven) {
  PluckedString string(220.0, 2.0, kTrebleHertz, 0.5);
  double early = 0.0;
  double late = 0.0;
  for (int i = 0; i < 2 * 44100; ++i) {
    const double out = string.Next(i == 0 ? 1.0 : 0.0);
    const double second = i / 44100.0;
    early += second >= 0.5 && second < 0.6 ? out * out : 0.0;
    late += second >= 1.5 && second < 1.6 ? out * out : 0.0;
  }
  // One second of decay, in which the upper partials lose a little more than the fundamental's 30 dB.
  EXPECT_NEAR(10.0 * std::log10(early / late), 33.0, 3.0);
}

TEST(WavFile, PutsSamplesBehindAHeaderOfFortyFourBytes) {
  const std::vector<double> samples = {0.0, 1.0, -1.0, 2.0, 0.5};
  const std::string bytes = WavFile(samples);
  ASSERT_EQ(bytes.size(), 54U);
  EXPECT_EQ(bytes.substr(0, 4), "RIFF");
  EXPECT_EQ(bytes.substr(36, 4), "data");
  EXPECT_EQ(bytes.substr(44), std::string_view("\x00\x00\xFF\x7F\x01\x80\xFF\x7F\x00\x40", 10));
}

}  // namespace
}  // namespace tonalith::synth
