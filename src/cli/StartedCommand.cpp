#include "cli/StartedCommand.h"

#include "textures/SetCatalogue.h"

#include <ostream>

namespace vellumar {

StartedCommand::StartedCommand(CliContext& context)
    : context_(context)
    , services_(context.services)
{}

bool StartedCommand::startUp()
{
    context_.setAnswers(ConsoleMessageService::Answers::Default);
    return RunStartUpSequence(services_, ScreenFacts{}, state_) == StartUpOutcome::Continue;
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
