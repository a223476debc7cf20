PRAGMA foreign_keys=OFF;
BEGIN TRANSACTION;
CREATE TABLE boats(name);
INSERT INTO boats VALUES('Seventeen herring');
COMMIT;
