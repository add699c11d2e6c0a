-- A small shop, to try the program on: what a table, a key or a column can look like is here at least once.

PRAGMA foreign_keys = ON;

-- A lookup table with a text key.
CREATE TABLE Countries (
    CountryCode CHAR(2) NOT NULL PRIMARY KEY,
    CountryName VARCHAR(60) NOT NULL
);

-- An identity key, a GUID, money, a date, a yes/no column and long text.
CREATE TABLE Customers (
    CustomerID INTEGER PRIMARY KEY AUTOINCREMENT,
    CustomerGUID UNIQUEIDENTIFIER NOT NULL,
    CompanyName VARCHAR(60) NOT NULL,
    ContactName VARCHAR(40),
    CountryCode CHAR(2) REFERENCES Countries (CountryCode),
    CustomerSince DATE,
    CreditLimit MONEY NOT NULL DEFAULT 0,
    IsActive BOOLEAN NOT NULL DEFAULT 1,
    Remarks TEXT
);

CREATE TABLE Products (
    ProductID INTEGER PRIMARY KEY AUTOINCREMENT,
    ProductName VARCHAR(80) NOT NULL,
    UnitPrice MONEY NOT NULL,
    UnitsInStock SMALLINT,
    Weight DOUBLE,
    Discontinued BOOLEAN NOT NULL DEFAULT 0,
    Picture BLOB
);

-- The table's name and the names of two columns are words of the Visual Basic language.
CREATE TABLE "Option" (
    OptionID INTEGER PRIMARY KEY AUTOINCREMENT,
    ProductID INTEGER NOT NULL REFERENCES Products (ProductID),
    "Type" VARCHAR(20) NOT NULL,
    "Date" DATETIME,
    Surcharge MONEY NOT NULL DEFAULT 0
);

CREATE TABLE Orders (
    OrderID INTEGER PRIMARY KEY AUTOINCREMENT,
    CustomerID INTEGER NOT NULL REFERENCES Customers (CustomerID),
    "Order Date" DATETIME NOT NULL,
    ShippedOn DATE,
    Freight MONEY,
    IsPaid BOOLEAN NOT NULL DEFAULT 0
);

-- A blank in the name, a key of two columns, and references to two tables.
CREATE TABLE "Order Lines" (
    OrderID INTEGER NOT NULL REFERENCES Orders (OrderID),
    LineNumber SMALLINT NOT NULL,
    ProductID INTEGER NOT NULL REFERENCES Products (ProductID),
    Quantity SMALLINT NOT NULL DEFAULT 1,
    UnitPrice MONEY NOT NULL,
    Discount REAL,
    PRIMARY KEY (OrderID, LineNumber)
);

CREATE VIEW "Open Orders" AS
    SELECT o.OrderID, o."Order Date", c.CompanyName, o.Freight
    FROM Orders AS o
    JOIN Customers AS c ON c.CustomerID = o.CustomerID
    WHERE o.IsPaid = 0;

INSERT INTO Countries VALUES ('DE', 'Germany'), ('FR', 'France'), ('NO', 'Norway');
INSERT INTO Customers (CustomerGUID, CompanyName, ContactName, CountryCode, CustomerSince, CreditLimit) VALUES
    ('{6B0C3C1E-52F7-4C39-9C7B-2D4E0F5A7B11}', 'Fjordhandel', 'K. Lund', 'NO', '1998-03-14', 5000),
    ('{0E9A4D57-8B3D-4E1F-A6C2-71F3D9B0C822}', 'Brot und Mehr', 'U. Weber', 'DE', '2001-11-02', 1200);
INSERT INTO Products (ProductName, UnitPrice, UnitsInStock) VALUES ('Rye bread', 3.20, 40), ('Brown cheese', 8.75, 12);
INSERT INTO Orders (CustomerID, "Order Date", Freight) VALUES (1, '2002-05-06 10:30:00', 12.5);
INSERT INTO "Order Lines" VALUES (1, 1, 2, 6, 8.75, NULL);
