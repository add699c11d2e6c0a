#include "shell/project_properties/logging_table_script.h"

#include "text/strings.h"

namespace veldrane {
namespace {

constexpr std::string_view kTemplate = "CREATE TABLE [dbo].[{name}] (\r\n"
                                       "\t[IDTransaction] [int] IDENTITY (1, 1) NOT NULL ,\r\n"
                                       "\t[TransactionXML] [text] NOT NULL ,\r\n"
                                       "\t[RecordedOn] [datetime] NOT NULL ,\r\n"
                                       "\t[ByUser] [varchar] (20) NULL ,\r\n"
                                       "\t[Complete] [tinyint] NOT NULL ,\r\n"
                                       "\t[ErrorText] [text] NULL\r\n"
                                       ") ON [PRIMARY] TEXTIMAGE_ON [PRIMARY]\r\n"
                                       "GO\r\n"
                                       "\r\n"
                                       "ALTER TABLE [dbo].[{name}] WITH NOCHECK ADD\r\n"
                                       "\tCONSTRAINT [DF_{name}_TransactionXML] DEFAULT ('<Empty>') FOR "
                                       "[TransactionXML],\r\n"
                                       "\tCONSTRAINT [DF_{name}_RecordedOn] DEFAULT (getdate()) FOR [RecordedOn],\r\n"
                                       "\tCONSTRAINT [DF_{name}_Complete] DEFAULT (0) FOR [Complete],\r\n"
                                       "\tCONSTRAINT [IX_{name}ID] UNIQUE  NONCLUSTERED\r\n"
                                       "\t(\r\n"
                                       "\t\t[IDTransaction]\r\n"
                                       "\t)  ON [PRIMARY]\r\n"
                                       "GO\r\n"
                                       "\r\n"
                                       "CREATE  INDEX [IX_{name}RecordedOn] ON [dbo].[{name}]([RecordedOn]) ON "
                                       "[PRIMARY]\r\n"
                                       "GO\r\n";

} // namespace

std::string LoggingTableScript(std::string_view tableName)
{
    return text::ReplaceAll(kTemplate, "{name}", tableName);
}

std::vector<std::string> Batches(std::string_view script)
{
    std::vector<std::string> batches;
    std::string batch;
    for (const std::string_view line : text::Split(script, "\r\n")) {
        if (line != "GO") {
            if (!batch.empty() || !line.empty())
                batch.append(line).append("\r\n");
        } else if (!batch.empty()) {
            batches.push_back(std::move(batch));
            batch.clear();
        }
    }
    if (!batch.empty())
        batches.push_back(std::move(batch));
    return batches;
}

} // namespace veldrane
