#include "examples/frame_editor/member_results.h"

#include <QObject>

#include <cmath>

namespace frame_editor {

namespace {

constexpr double pi = 3.14159265358979323846;

const Section& sectionOf(const FrameModel& model, const Member& member)
{
    return model.sections.at(static_cast<std::size_t>(model.findSection(member.section)));
}

const Material& materialOf(const FrameModel& model, const Member& member)
{
    return model.materials.at(static_cast<std::size_t>(model.findMaterial(member.material)));
}

/// The length of the member in plan.
double planLength(const FrameModel& model, const Member& member)
{
    return std::abs(model.nodes.at(static_cast<std::size_t>(member.end)).x -
                    model.nodes.at(static_cast<std::size_t>(member.start)).x);
}

double mass(const FrameModel& model, const Member& member)
{
    return model.memberLength(member) * sectionOf(model, member).area *
           materialOf(model, member).density;
}

double loadResultant(const FrameModel& model, const Member& member)
{
    const double length = member.loadDirection == LoadDirection::Projected
                              ? planLength(model, member)
                              : model.memberLength(member);
    return member.lineLoad * length;
}

double spanMoment(const FrameModel& model, const Member& member)
{
    // The lever of a vertical load is the span in plan.
    const double span = member.loadDirection == LoadDirection::Normal ? model.memberLength(member)
                                                                      : planLength(model, member);
    return loadResultant(model, member) * span / 8.0;
}

double thermalCurvature(const FrameModel& model, const Member& member)
{
    return materialOf(model, member).thermalExpansion * member.temperatureDifference /
           sectionOf(model, member).depth;
}

double bucklingLoad(const FrameModel& model, const Member& member)
{
    const double length = model.memberLength(member);
    return pi * pi * member.elasticModulus * sectionOf(model, member).inertiaY / (length * length);
}

} // namespace

const std::vector<MemberResult>& memberResults()
{
    static const std::vector<MemberResult> results{
        {QStringLiteral("length"), QObject::tr("Length"),
         QObject::tr("The distance of the nodes and the length offset"), 1001, true,
         [](const FrameModel& model, const Member& member) { return model.memberLength(member); }},
        {QStringLiteral("mass"), QObject::tr("Mass"), QObject::tr("Area, length and density"), 1180,
         false, mass},
        {QStringLiteral("load"), QObject::tr("Load"), QObject::tr("The resultant of the line load"),
         1190, false, loadResultant},
        {QStringLiteral("moment"), QObject::tr("Span moment"),
         QObject::tr("Of the line load on the member as a simple beam"), 1104, false, spanMoment},
        {QStringLiteral("curvature"), QObject::tr("Thermal curvature"),
         QObject::tr("Of the temperature difference on the free member"), 1009, false,
         thermalCurvature},
        {QStringLiteral("buckling"), QObject::tr("Buckling load"),
         QObject::tr("In the plane, with hinged ends"), 1101, false, bucklingLoad},
    };
    return results;
}

} // namespace frame_editor
