-- The option lists of the technology expert. Built into TechnologyExpert.db, which ships beside the engine library.
--
-- code    what parameter sets store; never given to another option later on
-- place   where the option stands in its list
-- factor  multiplier on cutting conditions, 1 is neutral: below 1 where less of feed and speed is safe

PRAGMA foreign_keys = ON;
PRAGMA user_version = 1;

BEGIN;

CREATE TABLE part_material (
  code INTEGER PRIMARY KEY,
  place INTEGER NOT NULL UNIQUE,
  name TEXT NOT NULL UNIQUE CHECK (length(name) > 0)
);

-- By the groups of ISO 513: P steels, M stainless steels, K cast irons, N non-ferrous, S heat-resistant and titanium,
-- H hardened steels; then what is not metal.
INSERT INTO part_material (code, place, name) VALUES
  ( 1,  1, 'Low Carbon Steel (1018, C15)'),
  ( 2,  2, 'Free Machining Steel (12L14, 11SMnPb30)'),
  ( 3,  3, 'Medium Carbon Steel (1045, C45)'),
  ( 4,  4, 'High Carbon Steel (1095, C100)'),
  ( 5,  5, 'Low Alloy Steel (4140, 42CrMo4)'),
  ( 6,  6, 'High Strength Alloy Steel (4340, 34CrNiMo6)'),
  ( 7,  7, 'Case Hardening Steel (8620, 20NiCrMo2)'),
  ( 8,  8, 'Bearing Steel (52100, 100Cr6)'),
  ( 9,  9, 'Spring Steel (5160, 55Cr3)'),
  (10, 10, 'Tool Steel, Cold Work (D2, X155CrVMo12)'),
  (11, 11, 'Tool Steel, Hot Work (H13, X40CrMoV5-1)'),
  (12, 12, 'Tool Steel, Oil Hardening (O1, 100MnCrW4)'),
  (13, 13, 'Mold Steel, Prehardened (P20, 40CrMnMo7)'),
  (14, 14, 'High Speed Steel (M2, HS6-5-2)'),
  (15, 15, 'Maraging Steel (C300)'),
  (16, 16, 'Cast Steel (GS-45)'),
  (17, 17, 'Stainless Steel, Ferritic (430, X6Cr17)'),
  (18, 18, 'Stainless Steel, Martensitic (420, X20Cr13)'),
  (19, 19, 'Stainless Steel, Free Machining (303, X8CrNiS18-9)'),
  (20, 20, 'Stainless Steel, Austenitic (304, X5CrNi18-10)'),
  (21, 21, 'Stainless Steel, Austenitic (316L, X2CrNiMo17-12-2)'),
  (22, 22, 'Stainless Steel, Duplex (2205, X2CrNiMoN22-5-3)'),
  (23, 23, 'Stainless Steel, Precipitation Hardening (17-4 PH)'),
  (24, 24, 'Stainless Steel, Precipitation Hardening (15-5 PH)'),
  (25, 25, 'Gray Cast Iron (Class 30, GJL-200)'),
  (26, 26, 'Ductile Cast Iron (65-45-12, GJS-450)'),
  (27, 27, 'Malleable Cast Iron (GJMB-450)'),
  (28, 28, 'Compacted Graphite Iron (GJV-400)'),
  (29, 29, 'Austempered Ductile Iron (ADI 900)'),
  (30, 30, 'Aluminum, Wrought (6061-T6)'),
  (31, 31, 'Aluminum, Wrought, High Strength (7075-T6)'),
  (32, 32, 'Aluminum, Wrought (2024-T3)'),
  (33, 33, 'Aluminum, Wrought, Marine (5083-H111)'),
  (34, 34, 'Aluminum, Tooling Plate (MIC-6)'),
  (35, 35, 'Aluminum, Cast, up to 12% Silicon (A356)'),
  (36, 36, 'Aluminum, Cast, over 12% Silicon (A390)'),
  (37, 37, 'Magnesium (AZ31B)'),
  (38, 38, 'Zinc (Zamak 3)'),
  (39, 39, 'Copper (C11000, Cu-ETP)'),
  (40, 40, 'Brass, Free Machining (C36000, CuZn39Pb3)'),
  (41, 41, 'Bronze, Tin (C93200)'),
  (42, 42, 'Bronze, Aluminum (C95400)'),
  (43, 43, 'Beryllium Copper (C17200)'),
  (44, 44, 'Titanium, Commercially Pure (Grade 2)'),
  (45, 45, 'Titanium Alloy (Ti-6Al-4V, Grade 5)'),
  (46, 46, 'Titanium Alloy, Beta (Ti-5553)'),
  (47, 47, 'Nickel Alloy (Inconel 718)'),
  (48, 48, 'Nickel Alloy (Inconel 625)'),
  (49, 49, 'Nickel Alloy (Hastelloy C-276)'),
  (50, 50, 'Nickel Alloy (Waspaloy)'),
  (51, 51, 'Nickel Copper Alloy (Monel 400)'),
  (52, 52, 'Cobalt Chrome (CoCrMo, F75)'),
  (53, 53, 'Iron Based Superalloy (A-286)'),
  (54, 54, 'Invar 36'),
  (55, 55, 'Tungsten (W 90)'),
  (56, 56, 'Molybdenum (TZM)'),
  (57, 57, 'Hardened Steel, 45 to 55 HRC'),
  (58, 58, 'Hardened Steel, 55 to 62 HRC'),
  (59, 59, 'Hardened Steel, over 62 HRC'),
  (60, 60, 'White Cast Iron, Chilled'),
  (61, 61, 'Graphite'),
  (62, 62, 'Acetal (POM, Delrin)'),
  (63, 63, 'Nylon (PA 6)'),
  (64, 64, 'Polycarbonate (PC)'),
  (65, 65, 'Acrylic (PMMA)'),
  (66, 66, 'PEEK'),
  (67, 67, 'PTFE'),
  (68, 68, 'UHMW Polyethylene'),
  (69, 69, 'Carbon Fiber Composite (CFRP)'),
  (70, 70, 'Glass Fiber Composite (GFRP, G10)'),
  (71, 71, 'Tooling Board (Polyurethane)'),
  (72, 72, 'Machinable Wax'),
  (73, 73, 'Hardwood'),
  (74, 74, 'Softwood, MDF');

CREATE TABLE hardness_scale (
  code INTEGER PRIMARY KEY,
  place INTEGER NOT NULL UNIQUE,
  name TEXT NOT NULL UNIQUE CHECK (length(name) > 0)
);

INSERT INTO hardness_scale (code, place, name) VALUES
  (1, 1, 'Brinell (HB)'),
  (2, 2, 'Rockwell A (HRA)'),
  (3, 3, 'Rockwell B (HRB)'),
  (4, 4, 'Rockwell C (HRC)'),
  (5, 5, 'Rockwell E (HRE)'),
  (6, 6, 'Rockwell 15N (HR15N)'),
  (7, 7, 'Vickers (HV)'),
  (8, 8, 'Knoop (HK)'),
  (9, 9, 'Shore D (HD)'),
  (10, 10, 'Shore Scleroscope (HSc)'),
  (11, 11, 'Tensile Strength (ksi)'),
  (12, 12, 'Tensile Strength (N/mm²)');

CREATE TABLE part_holding (
  code INTEGER PRIMARY KEY,
  place INTEGER NOT NULL UNIQUE,
  name TEXT NOT NULL UNIQUE CHECK (length(name) > 0),
  factor REAL NOT NULL CHECK (factor > 0 AND factor <= 2)
);

-- How much cutting force the holding stands.
INSERT INTO part_holding (code, place, name, factor) VALUES
  (1, 1, 'Rigid: Bolted Fixture, Tombstone', 1.0),
  (2, 2, 'Vise, Hard Jaws', 1.0),
  (3, 3, 'Vise, Soft Jaws', 0.95),
  (4, 4, 'Dovetail Vise, 5-Axis', 0.9),
  (5, 5, 'Zero Point Clamping', 1.0),
  (6, 6, 'Toe Clamps, Step Clamps', 0.9),
  (7, 7, 'Three Jaw Chuck', 0.95),
  (8, 8, 'Four Jaw Chuck', 0.95),
  (9, 9, 'Collet Chuck', 0.95),
  (10, 10, 'Chuck and Tailstock', 0.9),
  (11, 11, 'Expanding Mandrel', 0.85),
  (12, 12, 'Magnetic Chuck', 0.75),
  (13, 13, 'Vacuum Table', 0.65),
  (14, 14, 'Ice or Wax Fixture', 0.55),
  (15, 15, 'Double-Sided Tape, Adhesive', 0.5),
  (16, 16, 'Thin Wall, Unsupported', 0.5);

CREATE TABLE tool_coating (
  code INTEGER PRIMARY KEY,
  place INTEGER NOT NULL UNIQUE,
  name TEXT NOT NULL UNIQUE CHECK (length(name) > 0),
  factor REAL NOT NULL CHECK (factor > 0 AND factor <= 2)
);

-- Cutting speed against the same tool without coating.
INSERT INTO tool_coating (code, place, name, factor) VALUES
  (1, 1, 'Uncoated', 1.0),
  (2, 2, 'TiN (Titanium Nitride)', 1.15),
  (3, 3, 'TiCN (Titanium Carbonitride)', 1.2),
  (4, 4, 'TiAlN (Titanium Aluminum Nitride)', 1.3),
  (5, 5, 'AlTiN (Aluminum Titanium Nitride)', 1.35),
  (6, 6, 'AlTiN Nano (Multilayer)', 1.4),
  (7, 7, 'AlCrN (Aluminum Chromium Nitride)', 1.4),
  (8, 8, 'TiSiN, TiAlSiN (Silicon Nanocomposite)', 1.45),
  (9, 9, 'CrN (Chromium Nitride)', 1.1),
  (10, 10, 'ZrN (Zirconium Nitride)', 1.15),
  (11, 11, 'TiB2 (Titanium Diboride)', 1.2),
  (12, 12, 'DLC (Diamond-Like Carbon)', 1.3),
  (13, 13, 'CVD Diamond', 1.6),
  (14, 14, 'PCD Tipped', 1.8),
  (15, 15, 'CBN Tipped', 1.6),
  (16, 16, 'Al2O3, CVD (Aluminum Oxide)', 1.35),
  (17, 17, 'Black Oxide', 1.05);

CREATE TABLE machine_taper (
  code INTEGER PRIMARY KEY,
  place INTEGER NOT NULL UNIQUE,
  name TEXT NOT NULL UNIQUE CHECK (length(name) > 0),
  factor REAL NOT NULL CHECK (factor > 0 AND factor <= 2)
);

-- Stiffness and pull force of the spindle interface; a 40 taper is the measure.
INSERT INTO machine_taper (code, place, name, factor) VALUES
  (1, 1, 'CAT 30', 0.75),
  (2, 2, 'CAT 40', 1.0),
  (3, 3, 'CAT 50', 1.25),
  (4, 4, 'CAT 40 Dual Contact', 1.1),
  (5, 5, 'CAT 50 Dual Contact', 1.35),
  (6, 6, 'BT 30', 0.75),
  (7, 7, 'BT 40', 1.0),
  (8, 8, 'BT 50', 1.25),
  (9, 9, 'BT 30 Dual Contact', 0.85),
  (10, 10, 'BT 40 Dual Contact', 1.1),
  (11, 11, 'BT 50 Dual Contact', 1.35),
  (12, 12, 'SK 30', 0.75),
  (13, 13, 'SK 40', 1.0),
  (14, 14, 'SK 50', 1.25),
  (15, 15, 'ISO 20', 0.5),
  (16, 16, 'NMTB 40', 1.0),
  (17, 17, 'NMTB 50', 1.25),
  (18, 18, 'HSK-A 40', 0.85),
  (19, 19, 'HSK-A 50', 0.95),
  (20, 20, 'HSK-A 63', 1.1),
  (21, 21, 'HSK-A 100', 1.4),
  (22, 22, 'HSK-E 25', 0.5),
  (23, 23, 'HSK-E 32', 0.6),
  (24, 24, 'HSK-E 40', 0.75),
  (25, 25, 'HSK-F 63', 0.9),
  (26, 26, 'HSK-T 63', 1.15),
  (27, 27, 'Capto C4', 0.85),
  (28, 28, 'Capto C5', 1.0),
  (29, 29, 'Capto C6', 1.2),
  (30, 30, 'Capto C8', 1.4),
  (31, 31, 'KM 63', 1.1),
  (32, 32, 'R8', 0.65),
  (33, 33, 'Morse Taper 2', 0.55),
  (34, 34, 'Morse Taper 3', 0.6),
  (35, 35, 'Morse Taper 4', 0.7),
  (36, 36, 'Router Collet Spindle', 0.45);

CREATE TABLE tool_holder (
  code INTEGER PRIMARY KEY,
  place INTEGER NOT NULL UNIQUE,
  name TEXT NOT NULL UNIQUE CHECK (length(name) > 0),
  factor REAL NOT NULL CHECK (factor > 0 AND factor <= 2)
);

-- Grip, run-out and damping of the tool holder; a milling chuck is the measure.
INSERT INTO tool_holder (code, place, name, factor) VALUES
  (1, 1, 'Shrink Fit', 1.1),
  (2, 2, 'Hydraulic Chuck', 1.05),
  (3, 3, 'Hydraulic Chuck, Heavy Duty', 1.1),
  (4, 4, 'Milling Chuck', 1.0),
  (5, 5, 'Press Fit, Polygonal', 1.1),
  (6, 6, 'End Mill Holder, Side Lock (Weldon)', 0.95),
  (7, 7, 'End Mill Holder, Whistle Notch', 0.95),
  (8, 8, 'Collet Chuck, ER 11', 0.7),
  (9, 9, 'Collet Chuck, ER 16', 0.75),
  (10, 10, 'Collet Chuck, ER 20', 0.8),
  (11, 11, 'Collet Chuck, ER 25', 0.85),
  (12, 12, 'Collet Chuck, ER 32', 0.85),
  (13, 13, 'Collet Chuck, ER 40', 0.9),
  (14, 14, 'Collet Chuck, High Precision', 0.95),
  (15, 15, 'Collet Chuck, TG 100', 0.9),
  (16, 16, 'Shell Mill Arbor', 1.0),
  (17, 17, 'Modular Screw-In Holder', 0.85),
  (18, 18, 'Boring Head', 0.7),
  (19, 19, 'Drill Chuck', 0.6),
  (20, 20, 'Tapping Holder, Floating', 0.7),
  (21, 21, 'Tapping Holder, Synchronized', 0.9),
  (22, 22, 'Damped Extension', 0.9),
  (23, 23, 'Extension, Undamped', 0.7),
  (24, 24, 'Angle Head', 0.6),
  (25, 25, 'Speed Increaser', 0.65),
  (26, 26, 'Live Tool, Turret', 0.7);

CREATE TABLE aggressiveness (
  code INTEGER PRIMARY KEY,
  place INTEGER NOT NULL UNIQUE,
  name TEXT NOT NULL UNIQUE CHECK (length(name) > 0),
  factor REAL NOT NULL CHECK (factor > 0 AND factor <= 2)
);

-- How hard the recommendations push.
INSERT INTO aggressiveness (code, place, name, factor) VALUES
  (1, 1, 'Very Conservative', 0.6),
  (2, 2, 'Conservative', 0.75),
  (3, 3, 'Moderate', 0.9),
  (4, 4, 'Recommended', 1.0),
  (5, 5, 'Aggressive', 1.15),
  (6, 6, 'Very Aggressive', 1.3),
  (7, 7, 'Maximum', 1.5);

COMMIT;
