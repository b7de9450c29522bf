// Queries over the tables rows and files.
#include <sqlite3.h>

#include "tests/Tabulon/cli/CliRun.h"

namespace {

using Tests::Arguments;
using Tests::Exists;
using Tests::Finished;
using Tests::WriteFile;

class SqlOfTheCli : public Tests::CliRun {
 protected:
  void SetUp() override {
    CliRun::SetUp();
    WriteFile(m_folder / "g.txt",
              "Eve\nThird\nd\n\nBlock\tTrial\tReaction\tCode\nName\tName\tTime\t\n"
              "one\tx\t10\t007\n"
              "one\ty\t20\t7\n"
              "two\tx\t\tx\n"
              "one\tx\t40.5\t7.0\n");
  }
  std::string Query(const std::string& query, Arguments files = {"g.txt"}) {
    files.insert(files.begin(), {"sql", query, "--format", "csv"});
    return Output(files);
  }
};

TEST_F(SqlOfTheCli, ColumnsHaveBothOfTheirNames) {
  EXPECT_EQ(Query("SELECT \"Block Name\", \"Block\\nName\", \"Block\nName\" FROM rows LIMIT 1"),
            "Block Name,Block\\nName,Block Name#\none,one,one\n");
}

TEST_F(SqlOfTheCli, AStarGivesEachColumnOnce) {
  EXPECT_EQ(
      Query("SELECT * FROM rows LIMIT 1"),
      "row,flagged,file,line,title,date,participant,Block Name,Trial Name,Reaction Time,Code\n"
      "0,0,g.txt,7,Third,d,Eve,one,x,10,007\n");
}

TEST_F(SqlOfTheCli, AColumnOfNumbersHoldsNumbersAndNulls) {
  EXPECT_EQ(Query("SELECT typeof(\"Reaction Time\") t, typeof(Code) c FROM rows"),
            "t,c\ninteger,text\ninteger,text\nnull,text\nreal,text\n");
  EXPECT_EQ(Query("SELECT avg(\"Reaction Time\") m FROM rows"), "m\n23.5\n");
}

TEST_F(SqlOfTheCli, NumberGivesTheNumberInAText) {
  EXPECT_EQ(Query("SELECT number(Code) c, number(NULL) n, number(3) i FROM rows"),
            "c,n,i\n7.0,,3\n7.0,,3\n,,3\n7.0,,3\n");
}

TEST_F(SqlOfTheCli, GroupsJoinsAndWindowsWork) {
  EXPECT_EQ(Query("SELECT \"Trial Name\", count(*) n, avg(\"Reaction Time\") m FROM rows "
                  "GROUP BY \"Trial Name\" ORDER BY n DESC"),
            "Trial Name,n,m\nx,3,25.25\ny,1,20.0\n");
  EXPECT_EQ(Query("SELECT a.line, b.line FROM rows a JOIN rows b ON a.\"Trial Name\" = "
                  "b.\"Trial Name\" AND a.line < b.line ORDER BY 1, 2"),
            "line,line#\n7,9\n7,10\n9,10\n");
  EXPECT_EQ(Query("SELECT line, row_number() OVER (PARTITION BY \"Block Name\" ORDER BY line) n "
                  "FROM rows ORDER BY line"),
            "line,n\n7,1\n8,2\n9,1\n10,3\n");
  EXPECT_EQ(Query("SELECT json_group_array(\"Trial Name\") j FROM rows"),
            "j\n\"[\"\"x\"\",\"\"y\"\",\"\"x\"\",\"\"x\"\"]\"\n");
}

TEST_F(SqlOfTheCli, FilesAreATableOfTheirOwn) {
  EXPECT_EQ(Query("SELECT * FROM files", {"a.txt", "b.txt"}),
            "path,title,date,participant,rows\na.txt,First experiment,Mon Apr 02 2012,Ann,3\n"
            "b.txt,Second,Tue,B\xC3\xA9n\xC3\xA9,1\n");
  EXPECT_EQ(
      Query("SELECT path, count(\"Key\") FILTER (WHERE \"Key\" <> '') n FROM files JOIN rows ON "
            "path = file GROUP BY path ORDER BY path",
            {"a.txt", "b.txt"}),
      "path,n\na.txt,0\nb.txt,1\n");
}

// What is handed down to the table finds the same rows as SQLite finds by itself; "IS TRUE" keeps a condition from being
// handed down.
TEST_F(SqlOfTheCli, EqualityFindsTheSameRowsHandedDownOrNot) {
  for (const std::string column :
       {"\"Reaction Time\"", "Code", "\"Trial Name\"", "row", "line", "flagged", "file"}) {
    std::string answers;
    for (const std::string value :
         {"10", "'10'", "40.5", "'40.50'", "7", "'7'", "7.0", "'007'", "'x'", "NULL", "0", "1",
          "''", "x'37'", "9e999", "'g.txt'", "-1", "1.5"}) {
      const std::string select = "(SELECT group_concat(line) FROM rows WHERE ";
      const std::string condition = column + " = " + value;
      answers += std::string(answers.empty() ? "" : " UNION ALL ") + "SELECT " + select +
                 condition + ") AS handed, " + select + "(" + condition + ") IS TRUE) AS own";
    }
    EXPECT_EQ(Query("SELECT count(*) FILTER (WHERE handed IS NOT own) AS different, "
                    "count(handed) > 0 AS found FROM (" +
                    answers + ")"),
              "different,found\n0,1\n")
        << column;
  }
}

TEST_F(SqlOfTheCli, JoinsFindTheSameRowsHandedDownOrNot) {
  for (const std::string on :
       {"a.Code = b.Code", "a.Code = b.\"Reaction Time\"", "a.\"Reaction Time\" = b.Code",
        "a.\"Reaction Time\" = b.\"Reaction Time\"", "a.line = b.Code", "b.row + 3 = a.Code"}) {
    const std::string select =
        "SELECT a.line || '-' || b.line p FROM rows a CROSS JOIN rows b WHERE ";
    EXPECT_EQ(Query(select + on + " ORDER BY p"), Query(select + "(" + on + ") IS TRUE ORDER BY p"))
        << on;
  }
}

TEST_F(SqlOfTheCli, GroupingFindsTheSameGroupsHandedDownOrNot) {
  for (const std::string by : {"\"Block Name\"", "\"Trial Name\", \"Block Name\"", "Code", "line",
                               "\"Reaction Time\"", "file, \"Trial Name\""}) {
    const std::string select = "SELECT count(*) n, sum(row) s FROM rows ";
    EXPECT_EQ(
        Query("SELECT * FROM (" + select + "GROUP BY " + by + ") ORDER BY n, s"),
        Query("SELECT * FROM (SELECT count(*) n, sum(row) s FROM (SELECT * FROM rows LIMIT -1) "
              "GROUP BY " +
              by + ") ORDER BY n, s"))
        << by;
    EXPECT_EQ(Query("SELECT * FROM (" + select + "WHERE \"Block Name\" = 'one' GROUP BY " + by +
                    ") ORDER BY n, s"),
              Query("SELECT * FROM (" + select + "WHERE +\"Block Name\" = 'one' GROUP BY " + by +
                    ") ORDER BY n, s"))
        << by;
  }
}

TEST_F(SqlOfTheCli, OrderOfTextsIsThatOfTheirBytes) {
  WriteFile(m_folder / "o.txt",
            "p\nt\nd\n\nA\tB\n\nc\t1\na\tx\nb\tx\na\t1\nc\tx\nB\tx\n\xC3\xA4\tx\n");
  EXPECT_EQ(Query("SELECT A, count(*) n FROM rows GROUP BY A ORDER BY A", {"o.txt"}),
            "A,n\nB,1\na,2\nb,1\nc,2\n\xC3\xA4,1\n");
  EXPECT_EQ(Query("SELECT DISTINCT A FROM rows ORDER BY A DESC", {"o.txt"}),
            "A\n\xC3\xA4\nc\nb\na\nB\n");
  EXPECT_EQ(Query("SELECT A, B FROM rows ORDER BY A DESC, B", {"o.txt"}),
            "A,B\n\xC3\xA4,x\nc,1\nc,x\nb,x\na,1\na,x\nB,x\n");
  EXPECT_EQ(Query("SELECT A FROM rows ORDER BY A COLLATE NOCASE, line DESC LIMIT 3", {"o.txt"}),
            "A\na\na\nB\n");
}

TEST_F(SqlOfTheCli, FlagsAndConditionsReachTheQuery) {
  EXPECT_EQ(Query("SELECT line FROM rows WHERE flagged", {"g.txt", "--flag", "1"}), "line\n8\n");
  EXPECT_EQ(Query("SELECT row, line FROM rows", {"g.txt", "--where", "Trial Name=x"}),
            "row,line\n0,7\n1,9\n2,10\n");
}

TEST_F(SqlOfTheCli, ErrorsAreSqlitesOwnAndShowThePlace) {
  EXPECT_EQ(Complaint({"sql", "SELECT line\nFORM rows", "g.txt"}),
            "tabulon-cli: near \"rows\": syntax error\n  FORM rows\n       ^\n");
  EXPECT_EQ(Complaint({"sql", "SELECT \"Blok Name\" FROM rows", "g.txt"}),
            "tabulon-cli: no such column: Blok Name; did you mean \"Block Name\"?\n"
            "  SELECT \"Blok Name\" FROM rows\n         ^\n");
  EXPECT_EQ(Complaint({"sql", "", "g.txt"}), "tabulon-cli: the query is empty\n");
  EXPECT_EQ(Complaint({"sql", "SELECT 1; SELECT 2", "g.txt"}),
            "tabulon-cli: one query at a time\n  SELECT 1; SELECT 2\n           ^\n");
}

TEST_F(SqlOfTheCli, TheQueryComesFirst) {
  EXPECT_EQ(Complaint({"sql", "g.txt", "SELECT 1"}),
            "tabulon-cli: SELECT 1: no such file\n"
            "The query comes before the files, and \"g.txt\" was taken for it.\n");
}

// A column is looked through for numbers if the query names it in any way.
TEST_F(SqlOfTheCli, AColumnOfNumbersIsOneHoweverItIsAskedFor) {
  WriteFile(m_folder / "n.txt", "p\nt\nd\n\nA\ta\"b\tC\n\t\tD\n1\t2\t3\n");
  EXPECT_EQ(Query("SELECT typeof(a) t, typeof(\"A\"\"B\") u, typeof(\"c\\nd\") v, "
                  "typeof(\"C\nD\") w FROM rows",
                  {"n.txt"}),
            "t,u,v,w\ninteger,integer,integer,integer\n");
  EXPECT_EQ(
      Query("SELECT sum(x) s FROM (SELECT count(*), typeof(q.A) = 'integer' AS x FROM (SELECT "
            "* FROM rows) q)",
            {"n.txt"}),
      "s\n1\n");
}

TEST_F(SqlOfTheCli, NothingCanBeWrittenByAQuery) {
  for (const std::string query :
       {"ATTACH 'w.sqlite' AS w", "VACUUM INTO 'w.sqlite'", "CREATE TABLE t(a)", "DELETE FROM rows",
        "UPDATE rows SET line = 1", "PRAGMA journal_mode", "SELECT load_extension('x')"}) {
    const Finished finished = Run({"sql", query, "g.txt"});
    EXPECT_EQ(finished.status, 2) << query;
    EXPECT_EQ(finished.out, "") << query;
  }
  EXPECT_EQ(Tests::NamesIn(m_folder.Path()), Arguments({"a.txt", "b.txt", "bad.txt", "g.txt"}));
}

TEST_F(SqlOfTheCli, TablesAreListed) {
  EXPECT_EQ(Output({"sql", ".tables", "b.txt", "--format", "csv"}),
            "table,column,holds\nrows,row,numbers\nrows,flagged,numbers\nrows,file,text\n"
            "rows,line,numbers\nrows,title,text\nrows,date,text\nrows,participant,text\n"
            "rows,Event Name,text\nrows,Key,text\nrows,Code,numbers\nfiles,path,text\n"
            "files,title,text\nfiles,date,text\nfiles,participant,text\nfiles,rows,numbers\n");
}

TEST_F(SqlOfTheCli, JsonHasValuesOfTheirKind) {
  EXPECT_EQ(
      Output(
          {"sql", "SELECT 1 i, 1.5 f, 'x' t, NULL n, 9e999 inf, 1 i", "g.txt", "--format", "json"}),
      "[\n  {\"i\": 1, \"f\": 1.5, \"t\": \"x\", \"n\": null, \"inf\": \"Inf\", \"i#\": 1}\n]\n");
}

TEST_F(SqlOfTheCli, ASavedFileOpensInSqlite) {
  Output({"sql", ".tables", "a.txt", "g.txt", "--save", "all.sqlite"});
  EXPECT_FALSE(Exists(m_folder / "all.sqlite.unfinished"));
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open((m_folder / "all.sqlite").c_str(), &database), SQLITE_OK);
  const auto answer = [database](const char* query) {
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database, query, -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    std::string text;
    while (sqlite3_step(statement) == SQLITE_ROW)
      text += reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)) + std::string(";");
    sqlite3_finalize(statement);
    return text;
  };
  EXPECT_EQ(answer("PRAGMA integrity_check"), "ok;");
  EXPECT_EQ(answer("SELECT file || line || \"Event Name\" FROM rows"),
            "a.txt7go;a.txt8stop;a.txt9go;g.txt7;g.txt8;g.txt9;g.txt10;");
  EXPECT_EQ(answer("SELECT sum(\"Reaction Time\") FROM rows"), "387.5;");
  EXPECT_EQ(answer("SELECT title || rows FROM files"), "First experiment3;Third4;");
  sqlite3_close(database);
}

TEST_F(SqlOfTheCli, AFileThatIsThereIsNotOverwritten) {
  WriteFile(m_folder / "all.sqlite", "mine");
  EXPECT_EQ(Complaint({"sql", ".tables", "a.txt", "--save", "all.sqlite"}),
            "tabulon-cli: --save: all.sqlite is there already\n");
  EXPECT_EQ(Tests::ReadFile(m_folder / "all.sqlite"), "mine");
  const Finished finished = Run({"sql", ".tables", "a.txt", "--save", "none/all.sqlite"});
  EXPECT_EQ(finished.status, 3);
  EXPECT_EQ(finished.err.find("tabulon-cli: --save: none/all.sqlite: unable to open database"), 0U)
      << finished.err;
}

}  // namespace
