#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <vector>

namespace frame_editor {

// A plane frame. All numbers are in the base units of the units library: metre, second, tonne,
// kelvin, radian, kilonewton.

/// What a member is in the building.
enum class MemberKind
{
    Column,
    Beam,
    Rafter,
    Brace,
    Link ///< a rigid connection of two nodes, for axes that do not meet: it has no section
};

/// What the start of a member rests on.
enum class Support
{
    None,
    Roller,
    Pinned,
    Fixed
};

/// The direction in which the line load of a member acts.
enum class LoadDirection
{
    Vertical,  ///< downwards, per length of the member
    Projected, ///< downwards, per length of its plan, as snow
    Normal     ///< at right angles to the member, as wind
};

struct Material
{
    QString name;
    double elasticModulus = 0.0;   ///< kN/m2
    double shearModulus = 0.0;     ///< kN/m2
    double yieldStrength = 0.0;    ///< kN/m2
    double density = 0.0;          ///< t/m3
    double thermalExpansion = 0.0; ///< 1/K
};

/// A rolled I-section. y is the strong axis.
struct Section
{
    QString name;
    double depth = 0.0;           ///< m
    double width = 0.0;           ///< m
    double webThickness = 0.0;    ///< m
    double flangeThickness = 0.0; ///< m
    double rootRadius = 0.0;      ///< m
    double area = 0.0;            ///< m2
    double inertiaY = 0.0;        ///< m4
    double inertiaZ = 0.0;        ///< m4
};

struct Node
{
    QString name;
    double x = 0.0; ///< m, to the right
    double y = 0.0; ///< m, upwards
};

struct Member
{
    QString name;
    MemberKind kind = MemberKind::Beam;
    int start = -1;            ///< index of a node
    int end = -1;              ///< index of a node
    QString section;           ///< name of a section of the model
    QString material;          ///< name of a material of the model
    double lengthOffset = 0.0; ///< m, added to the distance of the nodes
    int divisions = 1;         ///< parts into which an analysis divides the member
    double lineLoad = 0.0;     ///< kN/m
    LoadDirection loadDirection = LoadDirection::Vertical;
    double moment = 0.0;                ///< kNm, at the start
    double temperatureDifference = 0.0; ///< K, between the two flanges
    double rotation = 0.0;              ///< rad, of the section about the axis of the member
    double thickness = 0.0;             ///< m, of the fire protection
    double elasticModulus = 0.0;        ///< kN/m2, used for this member
    Support support = Support::None;    ///< below the start
    bool hingeStart = false;
    bool hingeEnd = false;
    bool bedded = false;
    double beddingModulus = 0.0; ///< kN/m3
    QString note;
    QString drawing; ///< path of a file, empty for none
};

bool operator==(const Member& left, const Member& right);
bool operator!=(const Member& left, const Member& right);

struct FrameModel
{
    QString title;
    std::vector<Material> materials;
    std::vector<Section> sections;
    std::vector<Node> nodes;
    std::vector<Member> members;

    /// Indexes by name; -1 if there is none of that name.
    int findMaterial(const QString& name) const;
    int findSection(const QString& name) const;
    int findNode(const QString& name) const;
    int findMember(const QString& name) const;

    /// The length in which a member is built: the distance of its nodes and its offset.
    double memberLength(const Member& member) const;

    /// The names of the nodes that are nodes of these members, given by their indexes, and of no
    /// others.
    QStringList nodesOnlyOf(const QVector<int>& some) const;
};

} // namespace frame_editor
