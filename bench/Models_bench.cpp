// Dictionaries to model objects, keys matched without case, and back: beside Qt's gadgets, whose
// properties are written and read through their meta-object.

#include <benchmark/benchmark.h>

#include <QHash>
#include <QMetaProperty>
#include <QString>
#include <QVariantMap>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "zarnic/NSObject+ZNCategory.h"
#include "zarnic/platform/foundation/Property.h"

class QtUser {
    Q_GADGET
    Q_PROPERTY(QString userName MEMBER userName)
    Q_PROPERTY(QString email MEMBER email)
    Q_PROPERTY(QString homeTown MEMBER homeTown)
    Q_PROPERTY(int age MEMBER age)
    Q_PROPERTY(double score MEMBER score)
    Q_PROPERTY(bool isActive MEMBER isActive)
public:
    QString userName;
    QString email;
    QString homeTown;
    int age = 0;
    double score = 0;
    bool isActive = false;
};

namespace {

constexpr int userCount = 100'000;

class BenchUser : public zn::NSObject {
    ZN_MODEL(BenchUser, zn::NSObject, ZN_PROPERTY(userName), ZN_PROPERTY(email),
             ZN_PROPERTY(homeTown), ZN_PROPERTY(age), ZN_PROPERTY(score), ZN_PROPERTY(isActive))
public:
    std::string userName;
    std::string email;
    std::string homeTown;
    int age = 0;
    double score = 0;
    bool isActive = false;
};

std::string numbered(const char* text, int index) {
    return text + std::to_string(index);
}

const std::vector<zn::Dictionary>& dictionaries() {
    static const std::vector<zn::Dictionary> all = [] {
        std::vector<zn::Dictionary> made;
        for (int index = 0; index < userCount; ++index)
            made.push_back({{"USERNAME", numbered("user", index)},
                            {"eMail", numbered("somebody@example.org/", index)},
                            {"HomeTown", numbered("town", index % 100)},
                            {"AGE", index % 90},
                            {"score", index * 0.25},
                            {"ISACTIVE", index % 2 == 0}});
        return made;
    }();
    return all;
}

const std::vector<QVariantMap>& maps() {
    static const std::vector<QVariantMap> all = [] {
        std::vector<QVariantMap> made;
        for (int index = 0; index < userCount; ++index)
            made.push_back(
                {{"USERNAME", QString::fromStdString(numbered("user", index))},
                 {"eMail", QString::fromStdString(numbered("somebody@example.org/", index))},
                 {"HomeTown", QString::fromStdString(numbered("town", index % 100))},
                 {"AGE", index % 90},
                 {"score", index * 0.25},
                 {"ISACTIVE", index % 2 == 0}});
        return made;
    }();
    return all;
}

zn::Ref<BenchUser> user(const zn::Dictionary& dictionary) {
    return zn::ZN_DictionaryToObject<BenchUser>(dictionary);
}

QHash<QString, QMetaProperty> propertiesByLowercaseName() {
    QHash<QString, QMetaProperty> properties;
    const QMetaObject& type = QtUser::staticMetaObject;
    for (int index = 0; index < type.propertyCount(); ++index)
        properties.insert(QString(type.property(index).name()).toLower(), type.property(index));
    return properties;
}

QtUser qtUser(const QVariantMap& map) {
    static const auto properties = propertiesByLowercaseName();
    QtUser made;
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        const auto found = properties.find(entry.key().toLower());
        if (found != properties.end())
            found->writeOnGadget(&made, entry.value());
    }
    return made;
}

QVariantMap qtMap(const QtUser& each) {
    QVariantMap map;
    const QMetaObject& type = QtUser::staticMetaObject;
    for (int index = 0; index < type.propertyCount(); ++index) {
        const QMetaProperty property = type.property(index);
        map.insert(QString::fromLatin1(property.name()), property.readOnGadget(&each));
    }
    return map;
}

bool isSame(const zn::Value& ours, const QVariantMap& peer) {
    const zn::Dictionary entries = ours.dictionary();
    return entries.count() == 6 && peer.size() == 6 &&
           entries["userName"].stringValue() == peer["userName"].toString().toStdString() &&
           entries["email"].stringValue() == peer["email"].toString().toStdString() &&
           entries["homeTown"].stringValue() == peer["homeTown"].toString().toStdString() &&
           entries["age"].intValue() == peer["age"].toInt() &&
           entries["score"].doubleValue() == peer["score"].toDouble() &&
           entries["isActive"].boolValue() == peer["isActive"].toBool();
}

/// Both ways at once: the models are the same when what they give back is.
void requireSame() {
    for (int index = 0; index < userCount; ++index) {
        const auto place = static_cast<std::size_t>(index);
        if (isSame(zn::zn_ObjectToDictionary(user(dictionaries()[place])),
                   qtMap(qtUser(maps()[place]))))
            continue;
        std::fprintf(stderr, "model %d differs\n", index);
        std::exit(1);
    }
}

/// Each round makes all results and destroys them.
template <class Input, class Convert>
void convertAll(benchmark::State& state, const std::vector<Input>& inputs, const Convert& convert) {
    static const bool compared = (requireSame(), true);
    benchmark::DoNotOptimize(compared);
    for (auto _ : state) {
        std::vector<decltype(convert(inputs[0]))> results;
        results.reserve(inputs.size());
        for (const Input& input : inputs)
            results.push_back(convert(input));
        benchmark::DoNotOptimize(results);
    }
}

void DictionariesToModels_Zarnic(benchmark::State& state) {
    convertAll(state, dictionaries(), user);
}
BENCHMARK(DictionariesToModels_Zarnic)->Unit(benchmark::kMillisecond);

void DictionariesToModels_Qt(benchmark::State& state) {
    convertAll(state, maps(), qtUser);
}
BENCHMARK(DictionariesToModels_Qt)->Unit(benchmark::kMillisecond);

void ModelsToDictionaries_Zarnic(benchmark::State& state) {
    std::vector<zn::Ref<BenchUser>> users;
    for (const auto& dictionary : dictionaries())
        users.push_back(user(dictionary));
    convertAll(state, users, [](const auto& each) { return zn::zn_ObjectToDictionary(each); });
}
BENCHMARK(ModelsToDictionaries_Zarnic)->Unit(benchmark::kMillisecond);

void ModelsToDictionaries_Qt(benchmark::State& state) {
    std::vector<QtUser> users;
    for (const auto& map : maps())
        users.push_back(qtUser(map));
    convertAll(state, users, qtMap);
}
BENCHMARK(ModelsToDictionaries_Qt)->Unit(benchmark::kMillisecond);

}  // namespace

#include "Models_bench.moc"
