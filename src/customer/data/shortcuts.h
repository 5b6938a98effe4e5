#pragma once

#include "records/data/related_files.h"

// File shortcuts of customers (ユーザー関連ファイル) and of cases (件名関連ファイル).
namespace customer {

const records::RelatedFiles& customerFiles();
const records::RelatedFiles& caseFiles();

} // namespace customer
