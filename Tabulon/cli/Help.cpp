#include "Tabulon/cli/Help.h"

namespace TabulonCli {

const char* const HELP_ON_COLUMNS =
    R"(A column is named as it stands in the file, its two heading rows joined by a line feed, by the two
characters \n or by a blank: "Event\nName" or "Event Name". The columns file, line, title, date and
participant tell where a row comes from. Rows count from 0, in the order in which they are shown; lines
count from 1, as an editor does.
)";

const char* const HELP_OF_ALL =
    R"(Examples, with the data files in the folder data:
  tabulon-cli show data --format csv > all.csv             one file for R, Python or a spreadsheet
  tabulon-cli count file --where 'Event Name=go' data      which files hold an event, and how often
  tabulon-cli group --by 'Trial Name' --agg 'mean:Reaction Time,sd:Reaction Time,n' data
                                                           mean reaction time per trial
  tabulon-cli distinct 'Event Name' data                   the different events
  tabulon-cli summary data                                 what each column holds
  tabulon-cli diff before.txt after.txt                    what differs between two files
  tabulon-cli sql 'SELECT file, avg("Reaction Time") FROM rows GROUP BY file' data
  tabulon-cli info --short data                            one line per file
)";

const char* const HELP_ON_EXIT_STATUSES =
    R"(Exit status: 0 fine; 1 some file is no data file, the others were shown; 2 wrong use, or a
file that is missing or cannot be read; 3 the output could not be written.
Of diff: 0 no difference; 1 differences; 2 and 3 as above, and 2 if a file is no data file.)";

const char* const HELP_OF_SHOW =
    R"(Examples:
  tabulon-cli show data --where 'Event Name=go|stop' --where 'Reaction Time<500' --sort 'Trial Name,-Reaction Time:n'
  tabulon-cli show data --columns 'file,line,*Name' --hide 'Block*' --limit 20
Conditions: = the text itself, != another one, < <= > >= as numbers if the value is one, ~ contained,
COLUMN/REGEX/ or COLUMN~/REGEX/ a pattern. A row must fit all conditions. Of values parted by | one must
fit, none for !=; \| is the character itself.
)";

const char* const HELP_OF_DISTINCT =
    R"(Example:
  tabulon-cli distinct 'Block Name,Trial Name' --counts data
)";

const char* const HELP_OF_COUNT =
    R"(Example:
  tabulon-cli count 'Event Name,Error Code' --where 'Block Name~practice' data
)";

const char* const HELP_OF_GROUP =
    R"(Example:
  tabulon-cli group --by 'Block Name,Trial Name' --agg 'mean:Reaction Time,sd:Reaction Time,n' data
Cells that are no number stay out of mean, sd, median, min, max and sum; how many did is told on standard
error. sd is that of a sample. n counts rows, n:COLUMN its numbers.
)";

const char* const HELP_OF_SUMMARY =
    R"(Example:
  tabulon-cli summary data --where 'Event Name=go'
Least, median, mean and most are those of the cells that are numbers.
)";

const char* const HELP_OF_DIFF =
    R"(Example:
  tabulon-cli diff before.txt after.txt --key 'Block Name,Trial Name' --tolerance 'Reaction Time=5'
Without --key the rows that both have in the same order are found, as diff does for lines.
)";

const char* const HELP_OF_SQL =
    R"(Examples:
  tabulon-cli sql .tables data
  tabulon-cli sql 'SELECT "Trial Name", avg("Reaction Time") FROM rows GROUP BY 1' data
  tabulon-cli sql .tables data --save all.sqlite
The language is that of SQLite. The table rows has every column by its name on one line and with \n, the columns
of origin, row (from 0, in load order) and flagged; the table files has path, title, date, participant and rows.
A column of numbers holds numbers, and NULL where a cell is empty; number(x) is the number in a text, or NULL.
Nothing is written unless --save names a file, which must not exist.
)";

const char* const HELP_OF_INFO =
    R"(Example:
  tabulon-cli info --short data
)";

}  // namespace TabulonCli
