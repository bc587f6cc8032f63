#include "project/model/DuctRecord.h"

namespace plenair {

ElementType TypeOf(float colour) {
    if (colour == kRigidColour) {
        return ElementType::Rigid;
    }
    if (colour == kFlexibleColour) {
        return ElementType::Flexible;
    }
    return colour == kConnectionColour ? ElementType::Connection : ElementType::None;
}

std::string TypeLetter(float colour) {
    switch (TypeOf(colour)) {
    case ElementType::Rigid:
        return "R";
    case ElementType::Flexible:
        return "F";
    case ElementType::Connection:
        return "C";
    case ElementType::None:
        break;
    }
    return "";
}

} // namespace plenair
