#pragma once

class NetworkParser;

/// Registers all protocols, in the order of `ProtocolId`. Called once, before any connection.
void initProtocols(NetworkParser* parser);
/// Joins the program's parser with its protocols and pushes, and its client with the parser; a
/// second call does nothing.
void joinProtocols();

void initProtocolDevice(NetworkParser* parser);
void initProtocolHelper(NetworkParser* parser);
void initProtocolLog(NetworkParser* parser);
void initProtocolPackage(NetworkParser* parser);
void initProtocolPlayback(NetworkParser* parser);
void initProtocolPreset(NetworkParser* parser);
void initProtocolRole(NetworkParser* parser);
void initProtocolServer(NetworkParser* parser);
void initProtocolTask(NetworkParser* parser);
void initProtocolUser(NetworkParser* parser);
void initProtocolZone(NetworkParser* parser);
