#pragma once

class DrawingPlan;
class TagWriter;

// The sections of a drawing in file order. Each writes its SECTION and ENDSEC records too.

void writeHeaderSection(TagWriter& out, const DrawingPlan& plan);
void writeClassesSection(TagWriter& out, const DrawingPlan& plan);
void writeTablesSection(TagWriter& out, const DrawingPlan& plan);
void writeBlocksSection(TagWriter& out, const DrawingPlan& plan);
void writeEntitiesSection(TagWriter& out, const DrawingPlan& plan);
void writeObjectsSection(TagWriter& out, const DrawingPlan& plan);

/// The square that model space fills, from the origin, in millimetres.
double modelExtent(const DrawingPlan& plan);
