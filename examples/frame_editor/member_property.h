#pragma once

#include "examples/frame_editor/frame_model.h"

#include <functional>
#include <utility>
#include <variant>
#include <vector>

namespace frame_editor {

/// The value of a property: a text (names and keys of choices too), a number in base units, yes and
/// no, or a whole number.
using PropertyValue = std::variant<QString, double, bool, int>;

enum class PropertyKind
{
    Text,     ///< free text
    Name,     ///< text that is not empty and that no other member has
    Quantity, ///< number of a unit set
    Count,    ///< whole number from `minimum` to `maximum`
    Flag,
    Choice,  ///< key of one of `choices`
    Section, ///< name of a section of the model
    Material ///< name of a material of the model
};

/// One editable property of a member. The table of them is what files, the panel, the table of
/// members and the command line go by, so a property is told of once.
struct MemberProperty
{
    using Choice = std::pair<QString, QString>; ///< key in files, and what the user reads

    QString id;    ///< key in files and on the command line
    QString label; ///< caption
    PropertyKind kind = PropertyKind::Text;
    int unitSet = 0; ///< number of the unit set of a quantity, such as 1001
    int minimum = 0; ///< of a count
    int maximum = 0; ///< of a count
    /// Whether files may be without it, where a member has the value of a new one.
    bool isOptional = false;
    /// Whether a rigid link has it too.
    bool isForLinks = false;
    std::vector<Choice> choices;
    /// The English names of `choices`, which are the same in all languages that the user may read:
    /// with the keys, what the command line takes and prints.
    std::vector<QString> choiceNames;
    std::function<PropertyValue(const Member&)> get;
    /// Takes a value of the type that `get` gives; a choice has to be one of `choices`.
    std::function<void(Member&, const PropertyValue&)> set;

    /// What the user reads for the key of a choice; the key itself if it is unknown.
    QString choiceLabel(const QString& key) const;
    /// The English name for the key of a choice; the key itself if it is unknown.
    QString choiceName(const QString& key) const;
    /// The key of a choice by its key or its English name; empty if there is none.
    QString choiceKey(const QString& text) const;
};

/// All properties, in the order of files and columns.
const std::vector<MemberProperty>& memberProperties();

/// The property of that id, or null.
const MemberProperty* findMemberProperty(const QString& id);

/// Whether a property counts for a member: a rigid link has neither section nor loads. What does
/// not count is kept all the same.
bool appliesTo(const MemberProperty& property, const Member& member);

/// Why a property that does not apply to a member gets no value there.
QString noSuchValue();

/// Why `value` cannot stand in a member of this model, or an empty text. `member` is the index of
/// the member that is to get it.
QString refusalOf(const MemberProperty& property, const PropertyValue& value,
                  const FrameModel& model, int member);

} // namespace frame_editor
