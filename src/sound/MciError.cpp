#include "sound/MciError.h"

namespace vellumar {

std::string MciErrorText(std::uint32_t code)
{
    switch (code) {
    case 0:
        return {};
    case MciError::UnrecognizedKeyword:
        return "The driver cannot recognize the specified command parameter.";
    case MciError::UnrecognizedCommand:
        return "The driver cannot recognize the specified command.";
    case MciError::InvalidDeviceName:
        return "The specified device is not open or is not recognized by MCI.";
    case MciError::CannotLoadDriver:
        return "There is an undetectable problem in loading the specified device driver.";
    case MciError::MissingCommandString:
        return "No command was specified.";
    case MciError::MissingStringArgument:
        return "The specified command requires a character-string parameter. Please provide one.";
    case MciError::BadInteger:
        return "The specified integer is invalid for this command.";
    case MciError::MissingParameter:
        return "The specified command requires a parameter. Please supply one.";
    case MciError::UnsupportedFunction:
        return "The MCI device you are using does not support the specified command.";
    case MciError::DeviceNotReady:
        return "The device driver is not ready.";
    case MciError::CannotUseAll:
        return "Cannot use 'all' as the device name with the specified command.";
    case MciError::OutOfRange:
        return "The specified parameter is out of range for the specified command.";
    case MciError::DuplicateAlias:
        return "The specified alias is already being used in this application. Use a unique "
               "alias.";
    case MciError::BadConstant:
        return "The specified parameter is invalid for this command.";
    case MciError::MissingDeviceName:
        return "The specified command requires an alias, file, driver, or device name. Please "
               "supply one.";
    case MciError::NoClosingQuote:
        return "A closing double-quotation mark is missing from the parameter value. Please "
               "supply one.";
    case MciError::DuplicateFlags:
        return "A parameter or value was specified twice. Only specify it once.";
    case MciError::NoInteger:
        return "The specified command requires an integer parameter. Please provide one.";
    default:
        return "Unknown MCI error " + std::to_string(code) + ".";
    }
}

} // namespace vellumar
