// Bytes on their way out, written in large pieces.
#ifndef OMBRELIA_TABULON_CLI_OUTPUT_H
#define OMBRELIA_TABULON_CLI_OUTPUT_H

#include <ostream>
#include <string>

namespace TabulonCli {

class Output {
 public:
  // The stream must outlive this.
  explicit Output(std::ostream& stream) : m_stream(stream) {}

  // To be appended to.
  std::string& Bytes() { return m_bytes; }
  // Call between two rows.
  void WriteIfMuch() {
    if (m_bytes.size() >= MUCH) Write();
  }
  // After this a message on another stream comes behind the bytes.
  void WriteAndFlush() {
    Write();
    m_stream.flush();
  }
  void Write() {
    m_stream.write(m_bytes.data(), static_cast<std::streamsize>(m_bytes.size()));
    m_bytes.clear();
  }

 private:
  static constexpr std::size_t MUCH = 1 << 16;
  std::ostream& m_stream;
  std::string m_bytes;
};

}  // namespace TabulonCli

#endif
