#include <benchmark/benchmark.h>
#include <libintl.h>
#include <plist/plist.h>

#include <QTranslator>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "zarnic/ZNLanguageHelper.h"

using namespace zn;
namespace fs = std::filesystem;

namespace {

constexpr int tableSize = 5000;

std::string keyOf(int index) {
    return "screen." + std::to_string(index % 97) + ".label." + std::to_string(index);
}

std::string valueOf(int index) {
    return "The text of label number " + std::to_string(index);
}

[[noreturn]] void giveUp(const std::string& what) {
    std::fprintf(stderr, "%s\n", what.c_str());
    std::exit(1);
}

void run(const std::string& command) {
    if (std::system(command.c_str()) != 0)
        giveUp("failed: " + command);
}

/// The same table in the form of each library, in a folder that goes with the program.
class Tables {
public:
    Tables() {
        std::string name = (fs::temp_directory_path() / "zarnic-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            giveUp("no temporary folder");
        folder_ = name;
        for (int index = 0; index < tableSize; ++index)
            keys_.push_back(keyOf(index));
        writeStrings();
        writeGettext();
        writeQt();
    }
    ~Tables() { fs::remove_all(folder_); }

    const std::vector<std::string>& keys() const { return keys_; }
    const std::string& folder() const { return folder_; }
    const std::string& propertyList() const { return propertyList_; }

private:
    void writeStrings() {
        fs::create_directories(folder_ + "/app/en.lproj");
        std::ofstream strings(folder_ + "/app/en.lproj/Table.strings");
        propertyList_ =
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n";
        for (int index = 0; index < tableSize; ++index) {
            strings << '"' << keyOf(index) << "\" = \"" << valueOf(index) << "\";\n";
            propertyList_ +=
                "\t<key>" + keyOf(index) + "</key>\n\t<string>" + valueOf(index) + "</string>\n";
        }
        propertyList_ += "</dict>\n</plist>\n";
    }
    void writeGettext() {
        std::ofstream source(folder_ + "/table.po");
        source << "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n";
        for (int index = 0; index < tableSize; ++index)
            source << "msgid \"" << keyOf(index) << "\"\nmsgstr \"" << valueOf(index) << "\"\n";
        source.close();
        fs::create_directories(folder_ + "/mo/en_US/LC_MESSAGES");
        run("msgfmt -o " + folder_ + "/mo/en_US/LC_MESSAGES/table.mo " + folder_ + "/table.po");
        // Without a locale gettext would not look anything up.
        run("localedef -i en_US -f UTF-8 " + folder_ + "/en_US.UTF-8");
        setenv("LOCPATH", folder_.c_str(), 1);
        if (std::setlocale(LC_MESSAGES, "en_US.UTF-8") == nullptr)
            giveUp("no locale");
        bindtextdomain("table", (folder_ + "/mo").c_str());
        bind_textdomain_codeset("table", "UTF-8");
        textdomain("table");
    }
    void writeQt() {
        std::ofstream source(folder_ + "/table.ts");
        source << "<!DOCTYPE TS><TS version=\"2.1\" language=\"en_US\"><context><name>table</name>";
        for (int index = 0; index < tableSize; ++index)
            source << "<message><source>" << keyOf(index) << "</source><translation>"
                   << valueOf(index) << "</translation></message>\n";
        source << "</context></TS>";
        source.close();
        run("/usr/lib/qt6/bin/lrelease -silent " + folder_ + "/table.ts");
    }

    std::string folder_;
    std::vector<std::string> keys_;
    std::string propertyList_;
};

const Tables& tables() {
    static const Tables made;
    return made;
}

/// The helper with the table loaded; the first call of the process decides its bundle.
void loadOurs() {
    setenv("ZARNIC_BUNDLE", (tables().folder() + "/app").c_str(), 1);
    setenv("ZARNIC_HOME", (tables().folder() + "/home").c_str(), 1);
    ZNLanguageHelper::InitLanguageHelper("Table");
    for (int index = 0; index < tableSize; ++index) {
        if (ZNLanguageHelper::GetStringByKey(keyOf(index)) != valueOf(index))
            giveUp("ours: a text is missing");
    }
}

void TextsLookUp_Zarnic(benchmark::State& state) {
    loadOurs();
    for ([[maybe_unused]] auto turn : state)
        for (const std::string& key : tables().keys())
            benchmark::DoNotOptimize(ZNLanguageHelper::GetStringByKey(key));
    state.SetItemsProcessed(state.iterations() * tableSize);
}

void TextsLookUp_Gettext(benchmark::State& state) {
    for (int index = 0; index < tableSize; ++index) {
        if (tables().keys().empty() || gettext(keyOf(index).c_str()) != valueOf(index))
            giveUp("gettext: a text is missing");
    }
    for ([[maybe_unused]] auto turn : state)
        for (const std::string& key : tables().keys())
            benchmark::DoNotOptimize(std::string(gettext(key.c_str())));
    state.SetItemsProcessed(state.iterations() * tableSize);
}

void TextsLookUp_Qt(benchmark::State& state) {
    QTranslator translator;
    if (!translator.load(QString::fromStdString(tables().folder() + "/table.qm")))
        giveUp("Qt: no table");
    for (int index = 0; index < tableSize; ++index) {
        if (translator.translate("table", keyOf(index).c_str()).toStdString() != valueOf(index))
            giveUp("Qt: a text is missing");
    }
    for ([[maybe_unused]] auto turn : state)
        for (const std::string& key : tables().keys())
            benchmark::DoNotOptimize(translator.translate("table", key.c_str()));
    state.SetItemsProcessed(state.iterations() * tableSize);
}

/// A bundle is found again by its path, so each turn has a path of its own.
void TextsSwitch_Zarnic(benchmark::State& state) {
    static int turn = 0;
    for ([[maybe_unused]] auto each : state) {
        state.PauseTiming();
        const std::string path = tables().folder() + "/fresh" + std::to_string(turn++) + ".lproj";
        fs::create_directory_symlink(tables().folder() + "/app/en.lproj", path);
        state.ResumeTiming();
        const auto bundle = NSBundle::bundleWithPath(path);
        benchmark::DoNotOptimize(bundle->localizedStringForKey(tables().keys()[7], "", "Table"));
    }
}

void TextsSwitch_Libplist(benchmark::State& state) {
    const std::string& text = tables().propertyList();
    for ([[maybe_unused]] auto turn : state) {
        plist_t list = nullptr;
        plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &list);
        if (plist_dict_get_size(list) != tableSize)
            giveUp("libplist: a text is missing");
        plist_free(list);
    }
}

BENCHMARK(TextsLookUp_Zarnic);
BENCHMARK(TextsLookUp_Gettext);
BENCHMARK(TextsLookUp_Qt);
BENCHMARK(TextsSwitch_Zarnic);
BENCHMARK(TextsSwitch_Libplist);

}  // namespace
