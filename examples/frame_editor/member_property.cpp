#include "examples/frame_editor/member_property.h"

#include <QObject>

#include <algorithm>
#include <cmath>

namespace frame_editor {

namespace {

// Unit sets, by what they hold.
constexpr int lengthSet = 1001;
constexpr int thicknessSet = 1010;
constexpr int elasticModulusSet = 1090;
constexpr int beddingModulusSet = 1097;
constexpr int lineLoadSet = 1191;
constexpr int momentSet = 1194;
constexpr int angleSet = 1200;
constexpr int temperatureDifferenceSet = 1237;

constexpr int mostDivisions = 1000;

/// A key of an enumeration with its English name, which the translators see.
struct NamedKey
{
    const char* key;
    const char* name;
};

/// The keys of an enumeration, in the order of its enumerators.
using Keys = std::vector<NamedKey>;

template <class T>
MemberProperty plain(const char* id, const QString& label, PropertyKind kind, T Member::*field)
{
    MemberProperty property;
    property.id = QLatin1String(id);
    property.label = label;
    property.kind = kind;
    property.get = [field](const Member& member) { return PropertyValue(member.*field); };
    property.set = [field](Member& member, const PropertyValue& value) {
        member.*field = std::get<T>(value);
    };
    return property;
}

MemberProperty quantity(const char* id, const QString& label, int unitSet, double Member::*field)
{
    MemberProperty property = plain(id, label, PropertyKind::Quantity, field);
    property.unitSet = unitSet;
    return property;
}

MemberProperty count(const char* id, const QString& label, int minimum, int maximum,
                     int Member::*field)
{
    MemberProperty property = plain(id, label, PropertyKind::Count, field);
    property.minimum = minimum;
    property.maximum = maximum;
    property.isOptional = true;
    return property;
}

MemberProperty forLinks(MemberProperty property)
{
    property.isForLinks = true;
    return property;
}

template <class Enum>
MemberProperty choice(const char* id, const QString& label, const Keys& keys, Enum Member::*field)
{
    MemberProperty property;
    property.id = QLatin1String(id);
    property.label = label;
    property.kind = PropertyKind::Choice;
    for (const NamedKey& entry : keys) {
        property.choices.emplace_back(QLatin1String(entry.key), QObject::tr(entry.name));
        property.choiceNames.push_back(QLatin1String(entry.name));
    }
    const std::vector<MemberProperty::Choice> choices = property.choices;
    property.get = [field, choices](const Member& member) {
        return PropertyValue(choices.at(static_cast<std::size_t>(member.*field)).first);
    };
    property.set = [field, choices](Member& member, const PropertyValue& value) {
        const QString& key = std::get<QString>(value);
        for (std::size_t i = 0; i < choices.size(); ++i) {
            if (choices[i].first == key) {
                member.*field = static_cast<Enum>(i);
            }
        }
    };
    return property;
}

std::vector<MemberProperty> makeProperties()
{
    const Keys kinds{{"column", QT_TRANSLATE_NOOP("QObject", "Column")},
                     {"beam", QT_TRANSLATE_NOOP("QObject", "Beam")},
                     {"rafter", QT_TRANSLATE_NOOP("QObject", "Rafter")},
                     {"brace", QT_TRANSLATE_NOOP("QObject", "Brace")},
                     {"link", QT_TRANSLATE_NOOP("QObject", "Rigid link")}};
    const Keys supports{{"none", QT_TRANSLATE_NOOP("QObject", "None")},
                        {"roller", QT_TRANSLATE_NOOP("QObject", "Roller")},
                        {"pinned", QT_TRANSLATE_NOOP("QObject", "Pinned")},
                        {"fixed", QT_TRANSLATE_NOOP("QObject", "Fixed")}};
    const Keys directions{{"vertical", QT_TRANSLATE_NOOP("QObject", "Vertical, per length")},
                          {"projected", QT_TRANSLATE_NOOP("QObject", "Vertical, per plan length")},
                          {"normal", QT_TRANSLATE_NOOP("QObject", "Normal to the member")}};
    return {
        forLinks(plain("name", QObject::tr("Name"), PropertyKind::Name, &Member::name)),
        forLinks(choice("kind", QObject::tr("Kind"), kinds, &Member::kind)),
        plain("section", QObject::tr("Cross section"), PropertyKind::Section, &Member::section),
        plain("material", QObject::tr("Material"), PropertyKind::Material, &Member::material),
        quantity("length_offset", QObject::tr("Length offset"), lengthSet, &Member::lengthOffset),
        count("divisions", QObject::tr("Divisions"), 1, mostDivisions, &Member::divisions),
        quantity("line_load", QObject::tr("Line load"), lineLoadSet, &Member::lineLoad),
        choice("load_direction", QObject::tr("Load direction"), directions, &Member::loadDirection),
        quantity("moment", QObject::tr("Moment"), momentSet, &Member::moment),
        quantity("temperature_difference", QObject::tr("Temperature difference"),
                 temperatureDifferenceSet, &Member::temperatureDifference),
        quantity("rotation", QObject::tr("Rotation"), angleSet, &Member::rotation),
        quantity("thickness", QObject::tr("Thickness"), thicknessSet, &Member::thickness),
        quantity("elastic_modulus", QObject::tr("Elastic modulus"), elasticModulusSet,
                 &Member::elasticModulus),
        forLinks(choice("support", QObject::tr("Support"), supports, &Member::support)),
        plain("hinge_start", QObject::tr("Hinge at start"), PropertyKind::Flag,
              &Member::hingeStart),
        plain("hinge_end", QObject::tr("Hinge at end"), PropertyKind::Flag, &Member::hingeEnd),
        plain("bedded", QObject::tr("Bedded foundation"), PropertyKind::Flag, &Member::bedded),
        quantity("bedding_modulus", QObject::tr("Bedding modulus"), beddingModulusSet,
                 &Member::beddingModulus),
        forLinks(plain("note", QObject::tr("Note"), PropertyKind::Text, &Member::note)),
        forLinks(plain("drawing", QObject::tr("Drawing"), PropertyKind::Text, &Member::drawing)),
    };
}

QString refusalOfName(const QString& name, const FrameModel& model, int member)
{
    if (name.trimmed().isEmpty()) {
        return QObject::tr("a member needs a name");
    }
    const int owner = model.findMember(name);
    if (owner >= 0 && owner != member) {
        return QObject::tr("there is a member \"%1\" already").arg(name);
    }
    return QString();
}

} // namespace

QString MemberProperty::choiceLabel(const QString& key) const
{
    for (const Choice& choice : choices) {
        if (choice.first == key) {
            return choice.second;
        }
    }
    return key;
}

QString MemberProperty::choiceName(const QString& key) const
{
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (choices[i].first == key) {
            return choiceNames.at(i);
        }
    }
    return key;
}

QString MemberProperty::choiceKey(const QString& text) const
{
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (choices[i].first == text || choiceNames.at(i) == text) {
            return choices[i].first;
        }
    }
    return QString();
}

const std::vector<MemberProperty>& memberProperties()
{
    static const std::vector<MemberProperty> properties = makeProperties();
    return properties;
}

const MemberProperty* findMemberProperty(const QString& id)
{
    for (const MemberProperty& property : memberProperties()) {
        if (property.id == id) {
            return &property;
        }
    }
    return nullptr;
}

bool appliesTo(const MemberProperty& property, const Member& member)
{
    return member.kind != MemberKind::Link || property.isForLinks;
}

QString noSuchValue()
{
    return QObject::tr("a rigid link has no such value");
}

QString refusalOf(const MemberProperty& property, const PropertyValue& value,
                  const FrameModel& model, int member)
{
    switch (property.kind) {
    case PropertyKind::Name:
        return refusalOfName(std::get<QString>(value), model, member);
    case PropertyKind::Quantity:
        return std::isfinite(std::get<double>(value)) ? QString()
                                                      : QObject::tr("this is no finite number");
    case PropertyKind::Count: {
        const int number = std::get<int>(value);
        return number >= property.minimum && number <= property.maximum
                   ? QString()
                   : QObject::tr("a whole number from %1 to %2 is needed here")
                         .arg(property.minimum)
                         .arg(property.maximum);
    }
    case PropertyKind::Section:
        return model.findSection(std::get<QString>(value)) >= 0
                   ? QString()
                   : QObject::tr("the model has no cross section \"%1\"")
                         .arg(std::get<QString>(value));
    case PropertyKind::Material:
        return model.findMaterial(std::get<QString>(value)) >= 0
                   ? QString()
                   : QObject::tr("the model has no material \"%1\"").arg(std::get<QString>(value));
    case PropertyKind::Choice: {
        const QString& key = std::get<QString>(value);
        const bool known = std::any_of(property.choices.begin(), property.choices.end(),
                                       [&key](const auto& choice) { return choice.first == key; });
        return known ? QString() : QObject::tr("\"%1\" is no such choice").arg(key);
    }
    case PropertyKind::Text:
    case PropertyKind::Flag:
        break;
    }
    return QString();
}

} // namespace frame_editor
