#pragma once

class HostCore;
struct KestSelectionRequest;
struct KestSelectionSet;

/// Answers KestSSGet() for the host.
int selectEntities(HostCore& core, const KestSelectionRequest& request,
                   KestSelectionSet& selection);
