#pragma once

#include "sound/MediaControl.h"

#include <map>
#include <string>
#include <vector>

namespace vellumar::test {

// A media control interface that answers from a script: each command gets its scripted reply
// (and error number), or success with no reply. Records every command sent.
class ScriptedMediaControl final : public MediaControl {
public:
    std::uint32_t SendString(const std::string& command, std::string& reply) override
    {
        sent.push_back(command);
        const auto found = replies.find(command);
        reply = found == replies.end() ? std::string() : found->second;
        const auto failure = errors.find(command);
        return failure == errors.end() ? 0 : failure->second;
    }
    std::string ErrorText(std::uint32_t code) override
    {
        return "error text " + std::to_string(code);
    }

    // A disc of `tracks` tracks, at `position`'s track, playing or not.
    void insertDisc(int tracks, const std::string& position = "01:00:00:00",
                    const std::string& mode = "stopped")
    {
        replies["status cd media present"] = "true";
        replies["status cd number of tracks wait"] = std::to_string(tracks);
        replies["status cd length wait"] = "40:00:00";
        for (int track = 1; track <= tracks; ++track)
            replies["status cd length track " + std::to_string(track)] =
                "0" + std::to_string(track) + ":30:00";
        replies["status cd position"] = position;
        replies["status cd mode"] = mode;
    }
    void ejectDisc() { replies["status cd media present"] = "false"; }

    std::map<std::string, std::string> replies;
    std::map<std::string, std::uint32_t> errors;
    std::vector<std::string> sent;
};

} // namespace vellumar::test
