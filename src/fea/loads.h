// Loads beyond the surface load of the meshes: the foundation springs in the matrix, point loads and the three
// pressures in the right-hand sides. Rhs holds the negative of the load: a positive value in a uz row pushes down.
// Units: m, t.
#pragma once

namespace havuz {

// Rebuilds Yay and adds it to the diagonals of uz, ux and uy of every node: the bed acts alike in all three directions.
void AddSprings();

// Column 1: a load enters with its sign as it stands, so a positive FZ pushes down.
void AddPointLoads();

// Liquid, soil and groundwater on every mesh with Sil 0, in the columns of their codes. A store outside Rhs (a held
// translation with too many load columns) is Subscript, naming the node; a wall without length in plan DivisionByZero,
// naming the mesh.
void AddPressures();

// VerticalLoad of each column from the assembled right-hand sides, before they become the solution.
void SumVerticalLoads();

} // namespace havuz
