#pragma once

#include "examples/frame_editor/member_property.h"

namespace frame_editor {

/// A column of the table of members: a property, one of the two nodes, or the button.
struct MemberColumn
{
    /// What its cells look like and how they are edited.
    enum class Cell
    {
        Button,
        Text,
        Quantity,
        Count,
        Choice,
        Flag
    };
    using Choices = std::vector<MemberProperty::Choice>;

    QString id; ///< of the property; "zoom", "start" and "end" otherwise
    QString label;
    Cell cell = Cell::Text;
    const MemberProperty* property = nullptr; ///< null for the button and the nodes
    int Member::*node = nullptr;              ///< null for what is no node

    /// What the form that comes with the program lets a user type here.
    double minimum; ///< of a quantity, in base units
    double maximum;
    int longest; ///< text, in characters

    /// Whether such a member has a cell here.
    bool appliesTo(const Member& member) const;
    /// The value of a cell, of which a button has none. A node goes by its name.
    PropertyValue value(const FrameModel& model, const Member& member) const;
    /// Takes a value that refusal() lets through.
    void setValue(const FrameModel& model, Member& member, const PropertyValue& value) const;
    /// Why a value cannot stand here, or an empty text. Whether a name is taken is not looked at.
    QString refusal(const FrameModel& model, const PropertyValue& value) const;
    /// The entries of a choice.
    Choices choices(const FrameModel& model) const;
    /// Why a text is none of them.
    QString noSuchChoice(const QString& text) const;
};

/// All columns, in order.
const std::vector<MemberColumn>& memberColumns();

const MemberColumn& memberColumn(int column);

/// The number of the column of that id; -1 if there is none.
int findMemberColumn(const QString& id);

} // namespace frame_editor
