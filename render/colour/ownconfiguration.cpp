#include "render/colour/ownconfiguration.h"

#include <QColorSpace>
#include <QPointF>

#include <array>

namespace brindle::render {

namespace {

/// In the order of the engine's list of names (engine/session/colorspaces.cpp). The reference is ACES2065-1. A matrix
/// leads from the primaries and white of a space to those of the reference, adapted by Bradford's method; primaries are
/// those of ITU-R BT.601, BT.709, BT.2020, SMPTE EG 432-1 (P3), Adobe RGB (1998) and ISO 22028-2 (ProPhoto). Curves:
/// IEC 61966-2-1 (sRGB), ITU-R BT.709, BT.1886 and BT.2100, SMPTE 431-2 (2.6), Kodak's Cineon with black at 95 and
/// white at 685 of 1023.
constexpr char text[] = R"ocio(ocio_profile_version: 2

roles:
  default: sRGB
  scene_linear: Linear Rec.709
  data: Raw
  color_picking: sRGB
  aces_interchange: ACES2065-1

file_rules:
  - !<Rule> {name: Default, colorspace: default}

displays:
  sRGB:
    - !<View> {name: As it is, colorspace: sRGB}
  P3:
    - !<View> {name: As it is, colorspace: P3-D65}

colorspaces:
  - !<ColorSpace>
    name: sRGB
    to_scene_reference: !<GroupTransform>
      children:
        - !<ExponentWithLinearTransform> {gamma: [2.4, 2.4, 2.4, 1], offset: [0.055, 0.055, 0.055, 0]}
        - !<MatrixTransform> {matrix: [0.439632981919, 0.382988698152, 0.177378319929, 0, 0.089776442959, 0.813439428749, 0.096784128292, 0, 0.017541170383, 0.111546553302, 0.870912276314, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Linear
    to_scene_reference: !<MatrixTransform> {matrix: [0.439632981919, 0.382988698152, 0.177378319929, 0, 0.089776442959, 0.813439428749, 0.096784128292, 0, 0.017541170383, 0.111546553302, 0.870912276314, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Display P3
    to_scene_reference: !<GroupTransform>
      children:
        - !<ExponentWithLinearTransform> {gamma: [2.4, 2.4, 2.4, 1], offset: [0.055, 0.055, 0.055, 0]}
        - !<MatrixTransform> {matrix: [0.518933487598, 0.286256586387, 0.194809926015, 0, 0.073859383047, 0.819845163937, 0.106295453016, 0, -0.000307011368, 0.043807050254, 0.956499961115, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Adobe RGB (1998)
    to_scene_reference: !<GroupTransform>
      children:
        - !<ExponentTransform> {value: [2.19921875, 2.19921875, 2.19921875, 1], style: mirror}
        - !<MatrixTransform> {matrix: [0.614763305502, 0.200243702572, 0.184992991926, 0, 0.125539404684, 0.773521622217, 0.1009389731, 0, 0.024528796361, 0.067171543538, 0.908299660101, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: ProPhoto RGB
    to_scene_reference: !<GroupTransform>
      children:
        - !<ExponentTransform> {value: [1.8, 1.8, 1.8, 1], style: mirror}
        - !<MatrixTransform> {matrix: [0.805199458352, 0.124710121325, 0.070090420323, 0, -0.00431198542, 0.921778609398, 0.082533376023, 0, 0.002704745539, -0.008847146302, 1.00614240076, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Rec.601 NTSC
    to_scene_reference: !<GroupTransform>
      children:
        - !<ExponentWithLinearTransform> {gamma: [2.2222222222222223, 2.2222222222222223, 2.2222222222222223, 1], offset: [0.099, 0.099, 0.099, 0]}
        - !<MatrixTransform> {matrix: [0.419572603067, 0.391174031792, 0.189253365141, 0, 0.0986484264, 0.789696175669, 0.11165539793, 0, 0.017050826361, 0.104805436123, 0.878143737516, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Rec.601 PAL
    to_scene_reference: !<GroupTransform>
      children:
        - !<ExponentWithLinearTransform> {gamma: [2.2222222222222223, 2.2222222222222223, 2.2222222222222223, 1], offset: [0.099, 0.099, 0.099, 0]}
        - !<MatrixTransform> {matrix: [0.458995829121, 0.365717740576, 0.175286430303, 0, 0.093730485578, 0.810626797967, 0.095642716455, 0, 0.018313739812, 0.1210449818, 0.860641278388, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Rec.709
    to_scene_reference: !<GroupTransform>
      children:
        - !<ExponentWithLinearTransform> {gamma: [2.2222222222222223, 2.2222222222222223, 2.2222222222222223, 1], offset: [0.099, 0.099, 0.099, 0]}
        - !<MatrixTransform> {matrix: [0.439632981919, 0.382988698152, 0.177378319929, 0, 0.089776442959, 0.813439428749, 0.096784128292, 0, 0.017541170383, 0.111546553302, 0.870912276314, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Rec.1886
    to_scene_reference: !<GroupTransform>
      children:
        - !<ExponentTransform> {value: [2.4, 2.4, 2.4, 1], style: mirror}
        - !<MatrixTransform> {matrix: [0.439632981919, 0.382988698152, 0.177378319929, 0, 0.089776442959, 0.813439428749, 0.096784128292, 0, 0.017541170383, 0.111546553302, 0.870912276314, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Linear Rec.709
    to_scene_reference: !<MatrixTransform> {matrix: [0.439632981919, 0.382988698152, 0.177378319929, 0, 0.089776442959, 0.813439428749, 0.096784128292, 0, 0.017541170383, 0.111546553302, 0.870912276314, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Rec.2020
    to_scene_reference: !<GroupTransform>
      children:
        - !<ExponentWithLinearTransform> {gamma: [2.2222222222222223, 2.2222222222222223, 2.2222222222222223, 1], offset: [0.099, 0.099, 0.099, 0]}
        - !<MatrixTransform> {matrix: [0.679085634707, 0.157700914643, 0.16321345065, 0, 0.04600200308, 0.859054673003, 0.094943323917, 0, -0.000573943188, 0.028467768408, 0.97210617478, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Linear Rec.2020
    to_scene_reference: !<MatrixTransform> {matrix: [0.679085634707, 0.157700914643, 0.16321345065, 0, 0.04600200308, 0.859054673003, 0.094943323917, 0, -0.000573943188, 0.028467768408, 0.97210617478, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Rec.2100 PQ
    to_scene_reference: !<GroupTransform>
      children:
        - !<BuiltinTransform> {style: "DISPLAY - CIE-XYZ-D65_to_REC.2100-PQ", direction: inverse}
        - !<MatrixTransform> {matrix: [1.06349549149, 0.006408910197, -0.015806786618, 0, -0.492074127924, 1.36822340747, 0.091337088314, 0, -0.002816461639, 0.004644171057, 0.916418574594, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Rec.2100 HLG
    to_scene_reference: !<GroupTransform>
      children:
        - !<BuiltinTransform> {style: "DISPLAY - CIE-XYZ-D65_to_REC.2100-HLG-1000nit", direction: inverse}
        - !<MatrixTransform> {matrix: [1.06349549149, 0.006408910197, -0.015806786618, 0, -0.492074127924, 1.36822340747, 0.091337088314, 0, -0.002816461639, 0.004644171057, 0.916418574594, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: DCI-P3
    to_scene_reference: !<GroupTransform>
      children:
        - !<ExponentTransform> {value: [2.6, 2.6, 2.6, 1], style: mirror}
        - !<MatrixTransform> {matrix: [0.489786645325, 0.318376043345, 0.19183731133, 0, 0.06841295385, 0.828989073351, 0.102597972799, 0, -4.4997954e-05, 0.045476494281, 0.954568503672, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: P3-D65
    to_scene_reference: !<GroupTransform>
      children:
        - !<ExponentTransform> {value: [2.6, 2.6, 2.6, 1], style: mirror}
        - !<MatrixTransform> {matrix: [0.518933487598, 0.286256586387, 0.194809926015, 0, 0.073859383047, 0.819845163937, 0.106295453016, 0, -0.000307011368, 0.043807050254, 0.956499961115, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Linear P3-D65
    to_scene_reference: !<MatrixTransform> {matrix: [0.518933487598, 0.286256586387, 0.194809926015, 0, 0.073859383047, 0.819845163937, 0.106295453016, 0, -0.000307011368, 0.043807050254, 0.956499961115, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: CIE XYZ-D65
    to_scene_reference: !<MatrixTransform> {matrix: [1.06349549149, 0.006408910197, -0.015806786618, 0, -0.492074127924, 1.36822340747, 0.091337088314, 0, -0.002816461639, 0.004644171057, 0.916418574594, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: Cineon Log
    to_scene_reference: !<GroupTransform>
      children:
        - !<LogAffineTransform> {base: 10, log_side_slope: [0.293255131964809, 0.293255131964809, 0.293255131964809], log_side_offset: [0.669599217986315, 0.669599217986315, 0.669599217986315], lin_side_slope: [0.989202248376723, 0.989202248376723, 0.989202248376723], lin_side_offset: [0.010797751623277, 0.010797751623277, 0.010797751623277], direction: inverse}
        - !<MatrixTransform> {matrix: [0.439632981919, 0.382988698152, 0.177378319929, 0, 0.089776442959, 0.813439428749, 0.096784128292, 0, 0.017541170383, 0.111546553302, 0.870912276314, 0, 0, 0, 0, 1]}
  - !<ColorSpace>
    name: ACES2065-1
  - !<ColorSpace>
    name: ACEScg
    to_scene_reference: !<BuiltinTransform> {style: "ACEScg_to_ACES2065-1"}
  - !<ColorSpace>
    name: ACEScc
    to_scene_reference: !<BuiltinTransform> {style: "ACEScc_to_ACES2065-1"}
  - !<ColorSpace>
    name: ACEScct
    to_scene_reference: !<BuiltinTransform> {style: "ACEScct_to_ACES2065-1"}
  - !<ColorSpace>
    name: Raw
    isdata: true
)ocio";

constexpr QPointF daylight(0.3127, 0.3290);
constexpr QPointF theatre(0.314, 0.351);

using Curve = QColorSpace::TransferFunction;

/// A space of a matrix and a power.
struct Profile {
    const char* name;
    QPointF white, red, green, blue;
    Curve curve;
    float gamma; ///< 0 where the curve has none.
};

constexpr QPointF red709(0.64, 0.33), green709(0.30, 0.60), blue709(0.15, 0.06);
constexpr QPointF redP3(0.68, 0.32), greenP3(0.265, 0.69), blueP3(0.15, 0.06);

constexpr std::array profiles = {
    Profile{"sRGB", daylight, red709, green709, blue709, Curve::SRgb, 0},
    Profile{"Linear", daylight, red709, green709, blue709, Curve::Linear, 0},
    Profile{"Display P3", daylight, redP3, greenP3, blueP3, Curve::SRgb, 0},
    Profile{"Adobe RGB (1998)", daylight, red709, {0.21, 0.71}, blue709, Curve::Gamma, 2.19921875f},
    Profile{"ProPhoto RGB",
            {0.34567, 0.35850},
            {0.734699, 0.265301},
            {0.159597, 0.840403},
            {0.036598, 0.000105},
            Curve::Gamma,
            1.8f},
    Profile{"Rec.1886", daylight, red709, green709, blue709, Curve::Gamma, 2.4f},
    Profile{"Linear Rec.709", daylight, red709, green709, blue709, Curve::Linear, 0},
    Profile{"Linear Rec.2020", daylight, {0.708, 0.292}, {0.170, 0.797}, {0.131, 0.046}, Curve::Linear, 0},
    Profile{"DCI-P3", theatre, redP3, greenP3, blueP3, Curve::Gamma, 2.6f},
    Profile{"P3-D65", daylight, redP3, greenP3, blueP3, Curve::Gamma, 2.6f},
    Profile{"Linear P3-D65", daylight, redP3, greenP3, blueP3, Curve::Linear, 0},
};

} // namespace

const char* ownConfigurationText()
{
    return text;
}

QByteArray ownIccProfile(const QString& space)
{
    for (const Profile& profile : profiles) {
        if (space == QLatin1String(profile.name)) {
            return QColorSpace(profile.white, profile.red, profile.green, profile.blue, profile.curve, profile.gamma)
                .iccProfile();
        }
    }
    return {};
}

} // namespace brindle::render
