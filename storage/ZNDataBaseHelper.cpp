#include "zarnic/ZNDataBaseHelper.h"

#include <filesystem>

#include "storage/Connection.h"
#include "zarnic/platform/foundation/NSPathUtilities.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

std::string folderInDocuments(std::string_view name) {
    const auto documents = NSSearchPathForDirectoriesInDomains(
        static_cast<std::int64_t>(NSSearchPathDirectory::Document));
    return stringByAppendingPathComponent(documents.front(), name);
}

/// What cannot be made shows when the file is opened.
void makeFolder(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        std::filesystem::create_directories(path, error);
}

}  // namespace

void ZNDataBaseHelper::InitDataBaseHelperFileName(
    std::string_view fileName, std::string_view dbName,
    const std::vector<std::string>& tableStrings,
    const std::vector<std::string>& alterTableColumns) {
    const std::string folder = folderInDocuments(fileName);
    const std::string path = stringByAppendingPathComponent(folder, dbName);
    makeFolder(folder);
    auto& connection = Connection::shared();
    if (!connection.isOpenOn(path) && connection.reopen(path))
        HelperCreateTable(tableStrings, alterTableColumns);
}

void ZNDataBaseHelper::HelperCreateTable(const std::vector<std::string>& tableStrings,
                                         const std::vector<std::string>& alterTableColumns) {
    BeginTransaction();
    for (const auto& statement : tableStrings)
        ExecuteWithSQL(statement);
    CommitTransaction();
    AlterTableColumn(alterTableColumns);
}

void ZNDataBaseHelper::AlterTableColumn(const std::vector<std::string>& alterTableColumns) {
    for (const auto& statement : alterTableColumns)
        ExecuteWithSQL(statement);
}

void ZNDataBaseHelper::BeginTransaction() {
    Connection::shared().run("BEGIN");
}

void ZNDataBaseHelper::CommitTransaction() {
    Connection::shared().run("COMMIT");
}

sqlite3* ZNDataBaseHelper::GetDB() {
    return Connection::shared().handle();
}

Ref<NSObject> ZNDataBaseHelper::GetLock() {
    static const auto& token = *new Ref<NSObject>(make<NSObject>());
    return token;
}

}  // namespace zn
