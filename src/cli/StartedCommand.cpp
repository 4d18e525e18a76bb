#include "cli/StartedCommand.h"

#include "textures/SetCatalogue.h"

#include <ostream>

namespace vellumar {

StartedCommand::StartedCommand(CliContext& context)
    : context_(context)
    , services_(context.services)
{}

bool StartedCommand::startUp(bool yes)
{
    context_.setAnswers(ConsoleMessageService::Answers::Default);
    if (RunStartUpSequence(services_, ScreenFacts{}, state_) != StartUpOutcome::Continue)
        return false;
    context_.setAnswers(yes ? ConsoleMessageService::Answers::Yes
                            : ConsoleMessageService::Answers::Default);
    OfferInterruptedInstallAtStart(services_, state_);
    context_.setAnswers(ConsoleMessageService::Answers::Default);
    return true;
}

const TextureSetEntry* StartedCommand::setNamed(const std::string& name)
{
    const TextureSetEntry* found = FindSetNamed(state_.settings.Sets, name);
    if (!found)
        context_.err << "vellumar-cli: there is no texture set called \"" << name
                     << "\" (vellumar-cli sets lists them)\n";
    return found;
}

} // namespace vellumar
