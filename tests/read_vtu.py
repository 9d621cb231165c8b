# Reads a VTK XML file as a viewer does and compares it with the tables of the same results: read_vtu.py X.vtu DIR.
# Status 77 where Python or its VTK (python3-vtk9) is not installed; 1 and words for a difference.
import csv
import sys

try:
    from vtkmodules.vtkIOXML import vtkXMLUnstructuredGridReader
except ImportError:
    sys.exit(77)


def table(name):
    with open(f"{sys.argv[2]}/{name}.csv", newline="") as file:
        return list(csv.DictReader(file))


def agree(what, got, wanted):
    if abs(got - wanted) > 1e-9 * max(1.0, abs(wanted)):
        sys.exit(f"{what}: {got} for {wanted}")


reader = vtkXMLUnstructuredGridReader()
reader.SetFileName(sys.argv[1])
reader.Update()
grid = reader.GetOutput()
nodes, centres = table("nodes"), [r for r in table("corners") if r["corner"] == "0"]
cases = list(dict.fromkeys(r["case"] for r in nodes))
numbers = list(dict.fromkeys(r["node"] for r in nodes))
if grid.GetNumberOfPoints() != len(numbers) or grid.GetNumberOfCells() * len(cases) != len(centres):
    sys.exit(f"{grid.GetNumberOfPoints()} points, {grid.GetNumberOfCells()} cells")
place = {number: i for i, number in enumerate(numbers)}
for row in nodes:
    i = place[row["node"]]
    for k, name in enumerate(("x", "y", "z")):
        agree(f"node {row['node']} {name}", grid.GetPoint(i)[k], float(row[name]))
        moved = grid.GetPointData().GetArray("U_" + row["case"]).GetTuple3(i)
        agree(f"node {row['node']} u{name}", moved[k], float(row["u" + name]))
    agree("soil", grid.GetPointData().GetArray("SOIL_" + row["case"]).GetValue(i), float(row["soil"]))
cells = {grid.GetCellData().GetArray("MESH").GetValue(i): i for i in range(grid.GetNumberOfCells())}
corners = {(r["mesh"], r["corner"]): r["node"] for r in table("corners")}
for row in centres:
    i = cells[int(row["mesh"])]
    agree("PANEL", grid.GetCellData().GetArray("PANEL").GetValue(i), float(row["panel"]))
    for name in ("N11", "N22", "N12", "M11", "M22", "M12", "Q1", "Q2"):
        agree(name, grid.GetCellData().GetArray(name + "_" + row["case"]).GetValue(i), float(row[name]))
    cell = grid.GetCell(i)
    if cell.GetClassName() != "vtkQuad":
        sys.exit(cell.GetClassName())
    for k in range(4):
        agree("corner", cell.GetPointId(k), place[corners[row["mesh"], str(k + 1)]])
print(len(cases), "cases agree")
