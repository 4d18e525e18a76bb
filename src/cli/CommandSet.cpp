#include "cli/CommandSet.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace vellumar {

CommandSet::CommandSet(CLI::App& root, CliContext& context)
    : root_(root)
    , context_(context)
{}

CLI::App& CommandSet::add(CLI::App& parent, const std::string& name, const std::string& description,
                          std::function<int()> action)
{
    CLI::App& command = group(parent, name, description);
    actions_[&command] = std::move(action);
    return command;
}

CLI::App& CommandSet::add(CLI::App& parent, const std::string& name, const std::string& description,
                          const std::vector<TextArgument>& arguments,
                          std::function<int(const Texts&)> action)
{
    // The values live as long as the action that reads them.
    auto values = std::make_shared<Texts>(arguments.size());
    CLI::App& command = add(parent, name, description,
                            [values, action = std::move(action)] { return action(*values); });
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        CLI::Option* option =
            command.add_option(arguments[i].name, (*values)[i], arguments[i].description)
                ->type_name("");
        if (arguments[i].required)
            option->required();
    }
    return command;
}

CLI::App& CommandSet::group(CLI::App& parent, const std::string& name,
                            const std::string& description)
{
    CLI::App& command = *parent.add_subcommand(name, description);
    command.group(&parent == &root_ ? heading_ : "Commands");
    // At most one command follows a group; none is reported by RunCliCommand, which can name
    // the group.
    command.require_subcommand(0, 1);
    return command;
}

std::function<int()> CommandSet::chosen() const
{
    const CLI::App* command = &root_;
    while (!command->get_subcommands().empty())
        command = command->get_subcommands().front();
    const auto found = actions_.find(command);
    return found == actions_.end() ? std::function<int()>() : found->second;
}

} // namespace vellumar
