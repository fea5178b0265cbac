#pragma once

#include "packages/Files.h"

// A package in the game's legacy format: a tree of blocks, looked up by the SHA-256 of the path. The blocks are small,
// so that even a demo's tree has several levels and every sample runs over many blocks.
QByteArray legacyPackage(const Files &files);
