#include "Tabulon/cli/PlainTable.h"

namespace TabulonCli {

const wxString PLAIN_TABLE_MESSAGE = wxT(
    "This is a tab-separated table with one heading line, such as tabulon-cli writes, and no data ")
    wxT("file.");

}  // namespace TabulonCli
