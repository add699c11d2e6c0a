#pragma once

#include "support/tds_contents.h"
#include "support/tds_requests.h"
#include "support/tds_tokens.h"

#include <string>

namespace veldrane::testing {

// Answers a call of a catalog procedure as the server's reference describes it: sp_tables, sp_pkeys, sp_fkeys,
// sp_stored_procedures, sp_sproc_columns. Any other fails as one that is not there.
void AnswerTdsCall(const TdsContents& contents, const TdsCall& call, TdsAnswer& answer);

// Answers "SELECT * FROM name WHERE 1=0" with the table's columns, "SELECT SCHEMA_NAME()" with the login's schema, and
// fails as the server does for the word GO and for a table that is there; carries out anything else.
void AnswerTdsBatch(const TdsContents& contents, const std::string& batch, TdsAnswer& answer);

} // namespace veldrane::testing
