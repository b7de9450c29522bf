#include "benchmarks/DataFileMaker.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>

namespace Bench {
namespace {

constexpr std::size_t HEADER_LINES = 6;

// splitmix64: the distributions of the standard library may differ from one library to the next.
class Random {
 public:
  explicit Random(std::uint64_t seed) : m_state(seed) {}

  // From 0 to limit - 1.
  unsigned Below(unsigned limit) {
    m_state += 0x9E3779B97F4A7C15u;
    std::uint64_t z = m_state;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    z ^= z >> 31;
    return static_cast<unsigned>((z >> 32) * limit >> 32);
  }

 private:
  std::uint64_t m_state;
};

template <typename... ARGUMENTS>
std::string Text(const char* format, ARGUMENTS... arguments) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, format, arguments...);
  return buffer;
}

// Six words of four letters with a blank behind each: 30 characters, and many share the first 18.
std::string Sentence(Random& random) {
  static const char* const words[16] = {"bird", "boat", "cold", "dark", "east", "fish",
                                        "gold", "hill", "iron", "lake", "moon", "nest",
                                        "rain", "snow", "tree", "wind"};
  std::string text;
  for (int word = 0; word < 6; ++word) {
    text.append(words[random.Below(16)], 4);
    text += word < 5 ? ' ' : '.';
  }
  return text;
}

// The byte 0xE9 stands for an accented letter until the text is spelled.
constexpr char ACCENT = '\xE9';
constexpr char CONTROL = '\x01';

// The two heading rows. Four columns have no cell in the first one, which makes them code columns. The
// queried columns' cells in the second row are unique, so that a reader of one heading row finds them.
std::string Header(unsigned participant, Spelling spelling) {
  const bool accented = spelling != Spelling::Ascii && spelling != Spelling::ControlCharacters;
  std::string text = Text("participant %u", participant);
  if (accented) text += ACCENT;
  text += "\nRegression of speed\n2015-10-29 14:05:12\n\n";
  text +=
      "Participant\tParticipant\tBlock\tTrial\tEvent\tParticipant\tKey\tCorrect\tError\tReaction\t"
      "Font Color\tCumulative\tRefresh\tTrial\tEvent\tScreen\n";
  text +=
      "Group\tName\tName\tName\tName\tResponse\tPressed\tResponse\tCode\tTime\t"
      "(Trial "
      "Variable)\tTime\tCount\tCount\tCount\tLocation\tCondition\tStimulus\tSentence\tOnset\n";
  return text;
}

std::string Row(Random& random, unsigned participant, std::size_t number, Spelling spelling) {
  static const char* const colours[4] = {"red", "green", "blue", "grey"};
  static const char* const errors[3] = {"C", "E", "NR"};
  const bool answered = random.Below(8) != 0;
  const bool marked = number % 100 == 50;
  std::string text = Text("g%u\tp%03u\tblock%u\ttrial%u\t", participant % 4, participant,
                          static_cast<unsigned>(number / 400 % 100), random.Below(40));
  text += "ev";
  if (marked && spelling == Spelling::ControlCharacters) {
    text += CONTROL;
  } else if (marked && spelling != Spelling::Ascii) {
    text += ACCENT;
  }
  text += Text("ent%u\t%s\t%u\t%s\t%s\t", random.Below(6), answered ? "yes" : "", random.Below(4),
               random.Below(2) == 0 ? "yes" : "no", answered ? errors[random.Below(2)] : errors[2]);
  if (answered) text += Text("%u", 150 + random.Below(1850));
  text +=
      Text("\t%s\t%u\t%u\t%u\t%u\t%u\t", colours[random.Below(4)],
           static_cast<unsigned>(number * 700), random.Below(60),
           static_cast<unsigned>(number / 10), static_cast<unsigned>(number % 10), random.Below(9));
  text += Text("condition_%02u\ts%06u\t", random.Below(12), random.Below(960000));
  text += Sentence(random);
  text += Text("\t%u\n", random.Below(1000));
  return text;
}

void AppendSpelled(std::string& bytes, const std::string& text, Spelling spelling) {
  for (const char letter : text) {
    if (spelling == Spelling::Utf8Accents && letter == ACCENT) {
      bytes += "\xC3\xA9";
    } else {
      bytes += letter;
      if (spelling == Spelling::Utf16) bytes += '\0';
    }
  }
}

}  // namespace

std::string MakeDataFile(std::size_t largestSize, std::uint64_t seed, Spelling spelling) {
  Random random(seed);
  const unsigned participant = static_cast<unsigned>(seed % 1000);
  std::string bytes = spelling == Spelling::Utf16 ? "\xFF\xFE" : "";
  AppendSpelled(bytes, Header(participant, spelling), spelling);
  for (std::size_t number = 0;; ++number) {
    const std::size_t sizeBefore = bytes.size();
    AppendSpelled(bytes, Row(random, participant, number, spelling), spelling);
    if (bytes.size() > largestSize) {
      bytes.resize(sizeBefore);
      return bytes;
    }
  }
}

std::string MakeFileOfLetters(std::size_t largestSize, bool alike) {
  static const char* const letters[3] = {"\xC5\xA1", "\xC5\xA2", "\xC9\xA1"};  // U+0161, 0162, 0261
  std::string bytes = "participant\nLetters\n2015-10-29 14:05:12\n\nCondition\n\n";
  for (unsigned number = 0;; ++number) {
    std::string row;
    for (int bit = 0; bit < 16; ++bit) {
      row += letters[(number >> bit & 1) == 0 ? 0 : alike ? 2 : 1];
    }
    row += '\n';
    if (bytes.size() + row.size() > largestSize) return bytes;
    bytes += row;
  }
}

void WriteDataFile(const std::filesystem::path& file, const std::string& bytes) {
  std::ofstream stream(file, std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  if (!stream) {
    std::cerr << file.string() << ": cannot be written" << std::endl;
    std::exit(1);
  }
}

std::vector<std::filesystem::path> WriteDataFiles(const std::filesystem::path& folder,
                                                  std::size_t count, std::size_t size,
                                                  Spelling spelling) {
  std::vector<std::filesystem::path> files;
  for (std::size_t i = 0; i < count; ++i) {
    files.push_back(folder / Text("data%04u.txt", static_cast<unsigned>(i)));
    WriteDataFile(files.back(), MakeDataFile(size, i + 1, spelling));
  }
  return files;
}

std::size_t RowsIn(const std::string& bytes) {
  return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) - HEADER_LINES;
}

}  // namespace Bench
