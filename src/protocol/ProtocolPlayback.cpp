#include "protocol/Protocols.h"

#include "protocol/Commands.h"

namespace
{

constexpr CommandRow commands[] = {
    {"addPlaylist"},  {"addTrack"},         {"endTrack"},       {"includeTrack"},
    {"excludeTrack"}, {"setPosition"},      {"setRepetition"},  {"setVolume"},
    {"setTitle"},     {"remove"},           {"list"},           {"getTrack"},
    {"play"},         {"playNext"},         {"pause"},          {"getPlays"},
    {"stop"},         {"startRedirection"}, {"getRedirection"}, {"stopRedirection"},
};

} // namespace

void initProtocolPlayback(NetworkParser* parser)
{
    registerProtocol<PlaybackCommand>(parser, "playback", commands);
}
